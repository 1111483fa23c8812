-- Tables of the seminar administration.
--
-- T-SQL for Microsoft SQL Server and for the embedded database alike. The batches are separated by lines "GO" and are
-- to be run in order on an empty database. The file is UTF-8: sqlcmd reads it with "-f 65001".
--
-- Assumed of the database: texts compare without case (latin1_general_ci_as); the login's language reads a quoted date
-- day first (SET DATEFORMAT dmy).
--
-- Keys. The library numbers new rows itself with the greatest key plus one, so no key is an identity column. Two
-- sessions can draw the same number; the primary key makes the second one fail.
--
-- NULL. 0 and an empty reference are stored as NULL where a column allows it; reading, the library takes NULL for 0, an
-- empty text or the default that stands at the column. True is -1, false is 0, in smallint columns. A time of day is a
-- datetime on 30.12.1899; a day is a datetime at midnight.
--
-- Foreign keys stand only at the client's focus areas and at the two bindings of the wait-list. Elsewhere the library
-- itself would break them: the days of a new date are written before the date, with the number 0; a date goes without
-- its days and its wait-list, a participant without the costs, a seminar without its focus areas, target groups and
-- interest list; a seminar's focus area is linked before it is there.
--
-- Who fills what: tables marked "master data" belong to other programs of the suite; the library reads them only.

-- The active client. The first row counts; the library reads MDNR and nothing else. Master data.
CREATE TABLE OpactMD (
    MDNR int NOT NULL,
    Bezeichnung nvarchar(50) NULL,
    CONSTRAINT PK_OpactMD PRIMARY KEY (MDNR)
)
GO

-- Settings of the suite, as text. The library reads option 30: '-1' where the constants tables are kept per client,
-- '0' where all clients share them. The row of option 30 must be there. Master data.
CREATE TABLE optionen_database_dt (
    OptionID int NOT NULL,
    Wert nvarchar(255) NULL,
    CONSTRAINT PK_optionen_database_dt PRIMARY KEY (OptionID)
)
GO

-- The seminar catalogue: what is offered, with the defaults for planning its dates.
CREATE TABLE Sem_Katalog_IT (
    SemID int NOT NULL,
    -- the client; -1 stands for a seminar common to all clients
    MDNr int NOT NULL,
    SemCode nvarchar(20) NULL,
    SemTitel nvarchar(255) NULL,
    -- who looks after the seminar: sysIData_SemSachbearbeiter_IT
    Sachbearbeiter int NULL,
    Status int NULL,
    -- goal and content: Sem_ZielInhalt_IT
    InhaltZielID int NULL,
    TeilnehmerMIN int NULL,
    TeilnehmerMAX int NULL,
    TeilnehmerOPT int NULL,
    -- hours in all, and the number of meetings they are spread over
    Stunden float NULL,
    Sitzungen int NULL,
    -- recurrence of the meetings: Sem_Serien_IT
    SerienID int NULL,
    -- costs per participant, in the currency of the client
    KostenProTN money NULL,
    Anzahlung money NULL,
    Stornokosten money NULL,
    Abbruchkosten money NULL,
    -- deadlines in days before the first meeting
    FristStorno int NULL,
    FristAbbruch int NULL,
    FristAnmeldung int NULL,
    -- months after which the seminar is due again
    Wiederholung int NULL,
    CONSTRAINT PK_Sem_Katalog_IT PRIMARY KEY (SemID)
)
GO

-- The list of a client asks for its number and for -1; a series is dropped when nothing counts on it any more.
CREATE INDEX IX_Sem_Katalog_IT_MDNr ON Sem_Katalog_IT (MDNr)
CREATE INDEX IX_Sem_Katalog_IT_SerienID ON Sem_Katalog_IT (SerienID)
GO

-- Focus areas: named subjects of further training. A date adds those that it names and that are not there yet.
CREATE TABLE sysIData_WBS (
    WBS_ID int NOT NULL,
    Weiterbildungsschwerpunkt nvarchar(100) NULL,
    CONSTRAINT PK_sysIData_WBS PRIMARY KEY (WBS_ID)
)
GO

-- Not unique: where focus areas are kept per client, two clients may use one name.
CREATE INDEX IX_sysIData_WBS_Weiterbildungsschwerpunkt ON sysIData_WBS (Weiterbildungsschwerpunkt)
GO

-- Which client sees which focus area. Looked at only where option 30 says so.
CREATE TABLE sysIData_WBS_Mandant_IT (
    WBS_ID int NOT NULL,
    MDNr int NOT NULL,
    CONSTRAINT PK_sysIData_WBS_Mandant_IT PRIMARY KEY (WBS_ID, MDNr),
    CONSTRAINT FK_sysIData_WBS_Mandant_IT_WBS FOREIGN KEY (WBS_ID) REFERENCES sysIData_WBS (WBS_ID)
)
GO

-- The focus areas of a seminar. SchwerpunktID is a WBS_ID.
CREATE TABLE Sem_Schwerpunkte_IT (
    SchwerpunktID int NOT NULL,
    SemID int NOT NULL,
    CONSTRAINT PK_Sem_Schwerpunkte_IT PRIMARY KEY (SemID, SchwerpunktID)
)
GO

-- The focus areas of a date. SchwerpunktID is a WBS_ID.
CREATE TABLE Sem_Termin_Schwerpunkte_IT (
    SchwerpunktID int NOT NULL,
    SemTerminID int NOT NULL,
    CONSTRAINT PK_Sem_Termin_Schwerpunkte_IT PRIMARY KEY (SemTerminID, SchwerpunktID)
)
GO

-- Target groups. Master data.
CREATE TABLE sysIData_Zielgruppen (
    ID int NOT NULL,
    Kurz nvarchar(10) NULL,
    Bezeichnung nvarchar(100) NULL,
    CONSTRAINT PK_sysIData_Zielgruppen PRIMARY KEY (ID)
)
GO

-- The target groups of a seminar. A group whose master row is gone is listed with empty texts. Master data.
CREATE TABLE Sem_Zielgruppen_IT (
    SemID int NOT NULL,
    ZielGruppeID int NOT NULL,
    CONSTRAINT PK_Sem_Zielgruppen_IT PRIMARY KEY (SemID, ZielGruppeID)
)
GO

-- Goal and content of seminars and dates. Master data.
CREATE TABLE Sem_ZielInhalt_IT (
    ZielInhaltID int NOT NULL,
    Ziel nvarchar(2000) NULL,
    Inhalt nvarchar(2000) NULL,
    CONSTRAINT PK_Sem_ZielInhalt_IT PRIMARY KEY (ZielInhaltID)
)
GO

-- Recurrence rules of dates. A rule may be shared by seminars and dates.
CREATE TABLE Sem_Serien_IT (
    SerienID int NOT NULL,
    -- start and end of each meeting
    BeginnUhrzeit datetime NULL,
    EndeUhrzeit datetime NULL,
    -- 1 daily, anything else weekly; NULL is read as 1
    Tagefolge tinyint NULL,
    -- daily: 1 every day, anything else from Monday to Friday; NULL is read as 1
    taeglich tinyint NULL,
    -- weekly: every how many weeks
    Woche int NULL,
    -- weekly: on which weekdays, -1 or 0
    Mo smallint NULL,
    Di smallint NULL,
    Mi smallint NULL,
    Do smallint NULL,
    Fr smallint NULL,
    Sa smallint NULL,
    So smallint NULL,
    CONSTRAINT PK_Sem_Serien_IT PRIMARY KEY (SerienID)
)
GO

-- Dates: one offering of a seminar each.
CREATE TABLE Sem_Termin_IT (
    SemTerminID int NOT NULL,
    -- the client; -1 stands for a date common to all clients
    MDNr int NOT NULL,
    -- 1 Aktiv, 2 Anmeldung, 3 Storniert, 4 Abgeschlossen; NULL is read as 2
    Status tinyint NULL,
    Code nvarchar(20) NULL,
    Titel nvarchar(255) NULL,
    -- NULL: a date outside the catalogue
    SemID int NULL,
    InhaltZielID int NULL,
    -- whether employees may put themselves down, -1 or 0
    SelfService smallint NULL,
    Sachbearbeiter int NULL,
    -- first and last day; NULL while the date is open
    BeginnDatum datetime NULL,
    EndeDatum datetime NULL,
    BeginnUhrzeit datetime NULL,
    EndeUhrzeit datetime NULL,
    MinTeil int NULL,
    MaxTeil int NULL,
    OptTeil int NULL,
    -- NULL is read as 8 hours and 1 meeting
    Stunden float NULL,
    Sitzungen int NULL,
    SerienID int NULL,
    KostenProTN money NULL,
    -- until when participants may withdraw, and what it costs behind that day
    StornoDatum datetime NULL,
    StornoKosten money NULL,
    -- until when the date may be called off, and what it costs behind that day
    AbbruchDatum datetime NULL,
    AbbruchKosten money NULL,
    AnmeldefristDatum datetime NULL,
    BeurteilungID int NULL,
    -- 0, not NULL, where there is no organiser
    VeranstalterID int NULL,
    VeranstaltungsOrtID int NULL,
    Bemerkung nvarchar(255) NULL,
    CONSTRAINT PK_Sem_Termin_IT PRIMARY KEY (SemTerminID)
)
GO

-- The dates of a seminar, of a client, of a series.
CREATE INDEX IX_Sem_Termin_IT_SemID ON Sem_Termin_IT (SemID)
CREATE INDEX IX_Sem_Termin_IT_MDNr_EndeDatum ON Sem_Termin_IT (MDNr, EndeDatum)
CREATE INDEX IX_Sem_Termin_IT_SerienID ON Sem_Termin_IT (SerienID)
GO

-- The single days of a date. Rows with SemTerminID 0 were written for a date that had no number yet.
CREATE TABLE Sem_Termin_Termine_IT (
    SemTerminID int NOT NULL,
    Termin datetime NOT NULL,
    BegUhr datetime NULL,
    EndUhr datetime NULL,
    CONSTRAINT PK_Sem_Termin_Termine_IT PRIMARY KEY (SemTerminID, Termin)
)
GO

-- Organisers of dates. Master data.
CREATE TABLE sysIData_Veranstalter (
    ID int NOT NULL,
    Name nvarchar(100) NULL,
    PLZ nvarchar(10) NULL,
    Ort nvarchar(50) NULL,
    Strasse nvarchar(50) NULL,
    Anspr_partner nvarchar(50) NULL,
    Telefon nvarchar(30) NULL,
    Fax nvarchar(30) NULL,
    Sachbearbeiter nvarchar(50) NULL,
    EMail nvarchar(100) NULL,
    URL nvarchar(100) NULL,
    Mobiltelefon nvarchar(30) NULL,
    Bemerkungen nvarchar(255) NULL,
    CONSTRAINT PK_sysIData_Veranstalter PRIMARY KEY (ID)
)
GO

-- Venues of dates. Master data.
CREATE TABLE sysIData_VOrte (
    ID int NOT NULL,
    Name nvarchar(100) NULL,
    PLZ nvarchar(10) NULL,
    Ort nvarchar(50) NULL,
    Strasse nvarchar(50) NULL,
    Anspr_partner nvarchar(50) NULL,
    Telefon nvarchar(30) NULL,
    Fax nvarchar(30) NULL,
    Sachbearbeiter nvarchar(50) NULL,
    CONSTRAINT PK_sysIData_VOrte PRIMARY KEY (ID)
)
GO

-- Employees. Each client numbers its own. Master data.
CREATE TABLE arbeitnehmer (
    MDNR int NOT NULL,
    ANNR int NOT NULL,
    Name nvarchar(50) NULL,
    Vorname nvarchar(50) NULL,
    email nvarchar(100) NULL,
    CONSTRAINT PK_arbeitnehmer PRIMARY KEY (MDNR, ANNR)
)
GO

-- Who looks after seminars: the number that seminars and dates hold, and the employee behind it. Master data.
CREATE TABLE sysIData_SemSachbearbeiter_IT (
    sachbearbeiterid int NOT NULL,
    mdnr int NOT NULL,
    annr int NOT NULL,
    CONSTRAINT PK_sysIData_SemSachbearbeiter_IT PRIMARY KEY (sachbearbeiterid)
)
GO

-- Applicants. Vornamem is spelt so. Master data.
CREATE TABLE BW (
    BWID int NOT NULL,
    BWNr nvarchar(20) NULL,
    Nachname nvarchar(50) NULL,
    Vornamem nvarchar(50) NULL,
    CONSTRAINT PK_BW PRIMARY KEY (BWID)
)
GO

-- Temporary workers. Master data.
CREATE TABLE LA (
    LID int NOT NULL,
    Name nvarchar(50) NULL,
    Vorname nvarchar(50) NULL,
    CONSTRAINT PK_LA PRIMARY KEY (LID)
)
GO

-- Cost centres of employees over time; GueltigBis is the last day, NULL is open. Master data.
CREATE TABLE ANKOst_LV (
    MDNR int NOT NULL,
    ANNR int NOT NULL,
    Kost int NULL,
    GueltigAB datetime NOT NULL,
    GueltigBis datetime NULL,
    CONSTRAINT PK_ANKOst_LV PRIMARY KEY (MDNR, ANNR, GueltigAB)
)
GO

-- Skills of employees. The skills themselves are kept elsewhere in the suite. Master data.
CREATE TABLE AN_Faehigkeiten (
    MDNr int NOT NULL,
    ANNr int NOT NULL,
    Prof_ID int NOT NULL,
    CONSTRAINT PK_AN_Faehigkeiten PRIMARY KEY (MDNr, ANNr, Prof_ID)
)
GO

-- Seminars (gef_SemID) that are asked for before seminar SemID. Master data.
CREATE TABLE Sem_Anford_Seminare (
    SemID int NOT NULL,
    gef_SemID int NOT NULL,
    CONSTRAINT PK_Sem_Anford_Seminare PRIMARY KEY (SemID, gef_SemID)
)
GO

-- Skills that are asked for before seminar SemID. Master data.
CREATE TABLE Sem_Anford_Faehigkeiten (
    SemID int NOT NULL,
    Prof_ID int NOT NULL,
    CONSTRAINT PK_Sem_Anford_Faehigkeiten PRIMARY KEY (SemID, Prof_ID)
)
GO

-- Participants of dates. One of ANNr (with MDNr), BWID and LAID says who it is; the others are NULL.
CREATE TABLE Sem_Teilnehmer_IT (
    TeilnehmerID int NOT NULL,
    SemTerminID int NOT NULL,
    MDNr int NULL,
    ANNr int NULL,
    BWID int NULL,
    LAID int NULL,
    -- day and user of the enrolment; NULL is read as today and the present user
    ErfDatum datetime NULL,
    ErfUser nvarchar(50) NULL,
    -- -1 enrolled, 0 cancelled; NULL is read as -1
    Teilnahme smallint NULL,
    -- 3 and 4 by approval, 5 from the wait-list; NULL is read as 3
    Herkunft int NULL,
    BeginnDatum datetime NULL,
    BegUhrzeit datetime NULL,
    EndeDatum datetime NULL,
    EndUhrzeit datetime NULL,
    -- NULL, or 30.12.1899 where a cancellation was taken back
    storniertam datetime NULL,
    StornoGrund int NULL,
    -- whole units of currency, unlike all other amounts
    StornoKosten smallint NULL,
    -- NULL is read as 1
    Ergebnis int NULL,
    Bemerkung nvarchar(255) NULL,
    CONSTRAINT PK_Sem_Teilnehmer_IT PRIMARY KEY (TeilnehmerID)
)
GO

-- The participants of a date, and the dates of a person of each kind.
CREATE INDEX IX_Sem_Teilnehmer_IT_SemTerminID ON Sem_Teilnehmer_IT (SemTerminID)
CREATE INDEX IX_Sem_Teilnehmer_IT_MDNr_ANNr ON Sem_Teilnehmer_IT (MDNr, ANNr)
CREATE INDEX IX_Sem_Teilnehmer_IT_BWID ON Sem_Teilnehmer_IT (BWID)
CREATE INDEX IX_Sem_Teilnehmer_IT_LAID ON Sem_Teilnehmer_IT (LAID)
GO

-- Cost lines of participants, counted from 1 for each. They outlive the participant.
CREATE TABLE Sem_Teilnehmer_Kosten_IT (
    TeilnehmerID int NOT NULL,
    KostenID int NOT NULL,
    KostenArtID int NULL,
    Kostenbetrag real NULL,
    -- the cost centre that pays, 0 for none
    Kost int NULL,
    CONSTRAINT PK_Sem_Teilnehmer_Kosten_IT PRIMARY KEY (TeilnehmerID, KostenID)
)
GO

-- Cost types. The library adds 'Teilnehmerkosten' where it is missing and the greatest number is below 100.
CREATE TABLE sysIData_KostenArten (
    KostenArten_ID int NOT NULL,
    KostenArten nvarchar(50) NULL,
    CONSTRAINT PK_sysIData_KostenArten PRIMARY KEY (KostenArten_ID)
)
GO

-- Budget years; both days belong to the year. Master data.
CREATE TABLE Sem_BudgetJahr_IT (
    JahrID int NOT NULL,
    Von datetime NULL,
    Bis datetime NULL,
    CONSTRAINT PK_Sem_BudgetJahr_IT PRIMARY KEY (JahrID)
)
GO

-- Requests of persons, for a date (wait-list) or for a seminar (interest list); the bindings are in the tables below.
CREATE TABLE Sem_Warteliste_IT (
    SemWarteListeID int NOT NULL,
    -- kind of person: 2 employee, 3 applicant, 4 temporary worker
    ModID smallint NULL,
    MDNr int NULL,
    -- number of the person within its kind
    TNID int NULL,
    ErfDat datetime NULL,
    -- 1 from a training need, 2 from a cancellation, 3 and 4 by consent
    Herkunft smallint NULL,
    Wunschtermin datetime NULL,
    -- -1 the consent stands, 0 it was taken back; NULL for an entry from a cancellation
    Status smallint NULL,
    GeaendertAm datetime NULL,
    GeaendertVon nvarchar(50) NULL,
    CONSTRAINT PK_Sem_Warteliste_IT PRIMARY KEY (SemWarteListeID)
)
GO

CREATE INDEX IX_Sem_Warteliste_IT_MDNr_TNID ON Sem_Warteliste_IT (MDNr, TNID)
GO

-- Requests for a date.
CREATE TABLE Sem_WartelisteTermin_IT (
    SemWarteListeID int NOT NULL,
    SemTerminID int NOT NULL,
    CONSTRAINT PK_Sem_WartelisteTermin_IT PRIMARY KEY (SemWarteListeID, SemTerminID),
    CONSTRAINT FK_Sem_WartelisteTermin_IT_Warteliste FOREIGN KEY (SemWarteListeID) REFERENCES Sem_Warteliste_IT (SemWarteListeID)
)
GO

CREATE INDEX IX_Sem_WartelisteTermin_IT_SemTerminID ON Sem_WartelisteTermin_IT (SemTerminID)
GO

-- Requests for a seminar.
CREATE TABLE Sem_WartelisteSem_IT (
    SemWarteListeID int NOT NULL,
    SemID int NOT NULL,
    CONSTRAINT PK_Sem_WartelisteSem_IT PRIMARY KEY (SemWarteListeID, SemID),
    CONSTRAINT FK_Sem_WartelisteSem_IT_Warteliste FOREIGN KEY (SemWarteListeID) REFERENCES Sem_Warteliste_IT (SemWarteListeID)
)
GO

CREATE INDEX IX_Sem_WartelisteSem_IT_SemID ON Sem_WartelisteSem_IT (SemID)
GO

-- Training needs of employees.
CREATE TABLE AN_WBBedarf_IT (
    WBID int NOT NULL,
    MDNr int NULL,
    ANNr int NULL,
    -- focus area: a WBS_ID
    WBS int NULL,
    erfDat datetime NULL,
    erford datetime NULL,
    -- when the need was settled; NULL while it is open
    Erfuellt datetime NULL,
    erfUser nvarchar(50) NULL,
    -- 0 open, -1 fulfilled, 2 rejected
    BedarfErfuellt smallint NULL,
    Bemerkungen nvarchar(255) NULL,
    CONSTRAINT PK_AN_WBBedarf_IT PRIMARY KEY (WBID)
)
GO

CREATE INDEX IX_AN_WBBedarf_IT_MDNr_ANNr ON AN_WBBedarf_IT (MDNr, ANNr)
GO
