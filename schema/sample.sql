-- The training department of a small maker of precision parts: client 1 is the factory, client 2 the service company,
-- -1 what both offer. To be run once, after schema.sql. The file is UTF-8: sqlcmd reads it with "-f 65001".

INSERT INTO OpactMD (MDNR, Bezeichnung) VALUES (1, N'Feinmechanik Ölschläger GmbH')
INSERT INTO optionen_database_dt (OptionID, Wert) VALUES (30, N'-1')
GO

-- Common to both: what the law asks for, and what everybody needs now and then.
INSERT INTO Sem_Katalog_IT (SemID, MDNr, SemCode, SemTitel, Sachbearbeiter, Status, InhaltZielID, TeilnehmerMIN, TeilnehmerMAX, TeilnehmerOPT, Stunden, Sitzungen, SerienID, KostenProTN, Anzahlung, Stornokosten, Abbruchkosten, FristStorno, FristAbbruch, FristAnmeldung, Wiederholung) VALUES
    (1, -1, N'AS-01', N'Sicherheitsunterweisung für neue Beschäftigte', 12, 1, NULL, 1, 20, 10, 2, 1, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 2, NULL),
    (2, -1, N'AS-02', N'Jährliche Unterweisung Arbeitsschutz', 12, 1, NULL, 5, 30, 20, 1.5, 1, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 3, 12),
    (3, -1, N'AS-10', N'Erste Hilfe: Grundausbildung', 12, 1, NULL, 8, 15, 12, 9, 1, NULL, 55, NULL, 25, 55, 7, 1, 14, NULL),
    (4, -1, N'AS-11', N'Erste Hilfe: Auffrischung', 12, 1, NULL, 8, 15, 12, 9, 1, NULL, 48.5, NULL, 25, 48.5, 7, 1, 14, 24),
    (5, -1, N'AS-20', N'Brandschutzhelfer mit Löschübung', 12, 1, NULL, 6, 14, 10, 4, 1, NULL, 79.9, NULL, 30, 79.9, 10, 3, 14, 36),
    (6, -1, N'AS-30', N'Rückengerechtes Heben und Tragen', 12, 1, NULL, 6, 12, 10, 3.5, 1, NULL, 35, NULL, NULL, NULL, NULL, NULL, 7, 24),
    (7, -1, N'DS-01', N'Datenschutz am Arbeitsplatz', 14, 1, NULL, 1, 25, 15, 2, 1, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 5, 24),
    (8, -1, N'DS-02', N'Informationssicherheit: Passwörter, Phishing, Umgang mit Daten', 14, 1, NULL, 1, 25, 15, 1.5, 1, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 5, 12)

INSERT INTO Sem_Katalog_IT (SemID, MDNr, SemCode, SemTitel, Sachbearbeiter, Status, InhaltZielID, TeilnehmerMIN, TeilnehmerMAX, TeilnehmerOPT, Stunden, Sitzungen, SerienID, KostenProTN, Anzahlung, Stornokosten, Abbruchkosten, FristStorno, FristAbbruch, FristAnmeldung, Wiederholung) VALUES
    (9, -1, N'SP-E1', N'Englisch für den Beruf, Grundstufe', 15, 1, NULL, 4, 8, 6, 30, 20, NULL, 360, 60, 90, 360, 21, 7, 28, NULL),
    (10, -1, N'SP-E2', N'Englisch für den Beruf, Aufbaustufe', 15, 1, NULL, 4, 8, 6, 30, 20, NULL, 360, 60, 90, 360, 21, 7, 28, NULL),
    (11, -1, N'SP-D1', N'Deutsch für den Beruf: Hören, Lesen, Ausfüllen', 15, 1, NULL, 4, 10, 8, 45, 30, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 14, NULL),
    (12, -1, N'GE-01', N'Gesund im Schichtdienst', NULL, 1, NULL, 8, 16, 12, 6, 2, NULL, 42, NULL, 15, NULL, 7, NULL, 10, NULL)
GO

-- The factory.
INSERT INTO Sem_Katalog_IT (SemID, MDNr, SemCode, SemTitel, Sachbearbeiter, Status, InhaltZielID, TeilnehmerMIN, TeilnehmerMAX, TeilnehmerOPT, Stunden, Sitzungen, SerienID, KostenProTN, Anzahlung, Stornokosten, Abbruchkosten, FristStorno, FristAbbruch, FristAnmeldung, Wiederholung) VALUES
    (13, 1, N'FT-101', N'Zeichnungen lesen: Maße, Passungen, Oberflächen', 13, 1, NULL, 5, 12, 10, 16, 2, NULL, 240, NULL, 80, 240, 14, 5, 21, NULL),
    (14, 1, N'FT-102', N'Form- und Lagetoleranzen', 13, 1, NULL, 5, 12, 8, 14, 2, NULL, 265, NULL, 80, 265, 14, 5, 21, NULL),
    (15, 1, N'FT-110', N'CNC-Drehen: Programmieren und Einrichten', 13, 1, NULL, 3, 6, 5, 40, 5, NULL, 1250, 250, 300, 1250, 28, 14, 42, NULL),
    (16, 1, N'FT-111', N'CNC-Fräsen: Programmieren und Einrichten', 13, 1, NULL, 3, 6, 5, 40, 5, NULL, 1290, 250, 300, 1290, 28, 14, 42, NULL),
    (17, 1, N'FT-112', N'Fünfachsiges Fräsen für Fortgeschrittene', 13, 1, NULL, 3, 5, 4, 24, 3, NULL, 1480.5, 300, 350, 1480.5, 28, 14, 42, NULL),
    (18, 1, N'FT-120', N'Schleifen und Läppen im Mikrometerbereich', 13, 1, NULL, 3, 6, 5, 16, 2, NULL, 620, NULL, 150, 620, 21, 7, 28, NULL),
    (19, 1, N'FT-130', N'Kühlschmierstoffe prüfen und pflegen', 13, 1, NULL, 6, 15, 12, 4, 1, NULL, 45, NULL, NULL, NULL, NULL, NULL, 7, 36),
    (20, 1, N'FT-140', N'Wärmebehandlung: Härten, Anlassen, Prüfen', 13, 1, NULL, 5, 10, 8, 12, 2, NULL, 410, NULL, 120, 410, 14, 7, 28, NULL),
    (21, 1, N'QS-201', N'Messmittel richtig anwenden', 16, 1, NULL, 4, 10, 8, 7.5, 1, NULL, 120, NULL, 40, 120, 10, 3, 14, 36),
    (22, 1, N'QS-202', N'Koordinatenmesstechnik, Stufe 1', 16, 1, NULL, 3, 6, 4, 32, 4, NULL, 1180, 200, 280, 1180, 28, 14, 42, NULL),
    (23, 1, N'QS-203', N'Koordinatenmesstechnik, Stufe 2', 16, 1, NULL, 3, 6, 4, 32, 4, NULL, 1340, 200, 280, 1340, 28, 14, 42, NULL),
    (24, 1, N'QS-210', N'Statistische Prozesslenkung (SPC)', 16, 1, NULL, 5, 12, 10, 14, 2, NULL, 385, NULL, 100, 385, 14, 7, 21, NULL)

INSERT INTO Sem_Katalog_IT (SemID, MDNr, SemCode, SemTitel, Sachbearbeiter, Status, InhaltZielID, TeilnehmerMIN, TeilnehmerMAX, TeilnehmerOPT, Stunden, Sitzungen, SerienID, KostenProTN, Anzahlung, Stornokosten, Abbruchkosten, FristStorno, FristAbbruch, FristAnmeldung, Wiederholung) VALUES
    (25, 1, N'QS-220', N'Internes Audit: Ausbildung zur Auditorin, zum Auditor', 16, 1, NULL, 4, 10, 8, 21, 3, NULL, 690, 150, 200, 690, 21, 10, 35, 36),
    (26, 1, N'QS-230', N'Fehler-Möglichkeits- und Einfluss-Analyse (FMEA)', 16, 1, NULL, 5, 12, 8, 15, 2, NULL, 445, NULL, 110, 445, 14, 7, 21, NULL),
    (27, 1, N'AS-40', N'Flurförderzeuge: Ausbildung mit Prüfung', 12, 1, NULL, 4, 8, 6, 20, 3, NULL, 320, NULL, 100, 320, 14, 5, 21, NULL),
    (28, 1, N'AS-41', N'Flurförderzeuge: jährliche Unterweisung', 12, 1, NULL, 4, 20, 12, 2, 1, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 7, 12),
    (29, 1, N'AS-42', N'Kranführer: Bedienen flurgesteuerter Hallenkrane', 12, 1, NULL, 4, 8, 6, 14, 2, NULL, 285, NULL, 90, 285, 14, 5, 21, NULL),
    (30, 1, N'AS-50', N'Umgang mit Gefahrstoffen', 12, 1, NULL, 5, 20, 15, 3, 1, NULL, NULL, NULL, NULL, NULL, NULL, NULL, 7, 12),
    (31, 1, N'FK-301', N'Vom Kollegen zum Vorgesetzten', 11, 1, NULL, 6, 12, 10, 21, 3, NULL, 870, 200, 250, 870, 28, 14, 42, NULL),
    (32, 1, N'FK-302', N'Mitarbeitergespräche führen', 11, 1, NULL, 6, 12, 10, 15, 2, NULL, 590, NULL, 150, 590, 21, 10, 28, NULL),
    (33, 1, N'FK-303', N'Schwierige Gespräche: Kritik äußern, Lösungen finden', 11, 1, NULL, 6, 10, 8, 7.5, 1, NULL, 340, NULL, 100, 340, 21, 10, 28, NULL)

-- Planned for next year: titles only, the figures are still open.
INSERT INTO Sem_Katalog_IT (SemID, MDNr, SemCode, SemTitel, Status) VALUES
    (34, 1, N'FT-150', N'Additive Fertigung: 3D-Druck in Metall', 1),
    (35, 1, N'FK-310', N'Führen in Teilzeit', 1)
GO

-- The service company.
INSERT INTO Sem_Katalog_IT (SemID, MDNr, SemCode, SemTitel, Sachbearbeiter, Status, InhaltZielID, TeilnehmerMIN, TeilnehmerMAX, TeilnehmerOPT, Stunden, Sitzungen, SerienID, KostenProTN, Anzahlung, Stornokosten, Abbruchkosten, FristStorno, FristAbbruch, FristAnmeldung, Wiederholung) VALUES
    (36, 2, N'KD-01', N'Am Telefon überzeugen: Gespräche mit Kundinnen und Kunden', 21, 1, NULL, 5, 10, 8, 7.5, 1, NULL, 215, NULL, 70, 215, 14, 5, 21, NULL),
    (37, 2, N'KD-02', N'Beschwerden annehmen und lösen', 21, 1, NULL, 5, 10, 8, 7.5, 1, NULL, 215, NULL, 70, 215, 14, 5, 21, NULL),
    (38, 2, N'KD-10', N'Servicetechnik: Spindeln wechseln und einmessen', 22, 1, NULL, 2, 4, 3, 24, 3, NULL, 940, NULL, 250, 940, 21, 10, 28, NULL),
    (39, 2, N'KD-11', N'Elektrotechnisch unterwiesene Person (EuP)', 22, 1, NULL, 4, 12, 8, 16, 2, NULL, 375, NULL, 100, 375, 14, 7, 21, 12),
    (40, 2, N'KD-20', N'Fahrsicherheit für den Außendienst', 21, 1, NULL, 6, 12, 10, 8, 1, NULL, 189.95, NULL, 95, 189.95, 14, 7, 21, 36),
    (41, 2, N'KD-30', N'Angebote schreiben, die gelesen werden', NULL, 1, NULL, 4, 10, 8, 6.5, 2, NULL, 160, NULL, NULL, NULL, NULL, NULL, 14, NULL),
    (42, 2, NULL, N'Büroorganisation für kleine Teams', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL)
GO
