-- Who decides on the requests of the sample, and how far some of them have come. The superiors are user 11, the training
-- department is user 12. To be run once, after process.sql and sample.sql. The file is UTF-8: sqlcmd reads it with
-- "-f 65001".

INSERT INTO Sem_ProzessStufe_IT (ModulNr, Stufe, Bezeichnung) VALUES
    (7, 1, N'Vorgesetzte'), (7, 2, N'Weiterbildung'),
    (8, 1, N'Vorgesetzte'), (8, 2, N'Weiterbildung')
INSERT INTO Sem_ProzessRecht_IT (ModulNr, Stufe, UserID) VALUES
    (7, 1, 11), (7, 2, 12),
    (8, 1, 11), (8, 2, 12)
GO

-- Every need that is still open waits at the first stage, and those that were rejected were rejected there.
INSERT INTO Sem_ProzessSchritt_IT (ModulNr, SchluesselID, SchrittNr, Art, Stufe, UserID, Zeitpunkt, Bemerkung, Status, NaechsteStufe, MDNr, PersonID)
    SELECT 7, WBID, 1, N'Start', 1, 12, erfDat, NULL, 1, 1, MDNr, ANNr FROM AN_WBBedarf_IT WHERE BedarfErfuellt = 0 OR BedarfErfuellt = 2
INSERT INTO Sem_ProzessSchritt_IT (ModulNr, SchluesselID, SchrittNr, Art, Stufe, UserID, Zeitpunkt, Bemerkung, Status, NaechsteStufe, MDNr, PersonID)
    SELECT 7, WBID, 2, N'Ablehnung', 1, 11, Erfuellt, N'in diesem Jahr nicht möglich', 3, NULL, MDNr, ANNr FROM AN_WBBedarf_IT WHERE BedarfErfuellt = 2

-- Some of the open ones have come as far as the training department.
INSERT INTO Sem_ProzessSchritt_IT (ModulNr, SchluesselID, SchrittNr, Art, Stufe, UserID, Zeitpunkt, Bemerkung, Status, NaechsteStufe, MDNr, PersonID)
    SELECT 7, WBID, 2, N'Zustimmung', 1, 11, Convert(datetime,'01.09.2010 09:30:00',104), NULL, 1, 2, MDNr, ANNr FROM AN_WBBedarf_IT WHERE WBID IN (2, 5, 31, 33)
GO

-- So has each consent of the people themselves that waits for a date, except the latest ones.
INSERT INTO Sem_ProzessSchritt_IT (ModulNr, SchluesselID, SchrittNr, Art, Stufe, UserID, Zeitpunkt, Bemerkung, Status, NaechsteStufe, MDNr, PersonID)
    SELECT 8, w.SemWarteListeID, 1, N'Start', 1, 12, w.ErfDat, NULL, 1, 1, NULL, NULL
    FROM Sem_Warteliste_IT w INNER JOIN Sem_WartelisteTermin_IT t ON t.SemWarteListeID = w.SemWarteListeID
    WHERE w.Herkunft = 3 OR w.Herkunft = 4
INSERT INTO Sem_ProzessSchritt_IT (ModulNr, SchluesselID, SchrittNr, Art, Stufe, UserID, Zeitpunkt, Bemerkung, Status, NaechsteStufe, MDNr, PersonID)
    SELECT 8, w.SemWarteListeID, 2, N'Zustimmung', 1, 11, Convert(datetime,'30.08.2010 14:05:00',104), NULL, 1, 2, w.MDNr, w.TNID
    FROM Sem_Warteliste_IT w INNER JOIN Sem_WartelisteTermin_IT t ON t.SemWarteListeID = w.SemWarteListeID
    WHERE (w.Herkunft = 3 OR w.Herkunft = 4) AND w.ErfDat < Convert(datetime,'27.08.2010',104)
GO
