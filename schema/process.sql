-- Tables of the process objects: who has consented to a training need or to a wait-list entry, who may, in which stages.
--
-- T-SQL for Microsoft SQL Server and for the embedded database alike, to be run once, after schema.sql or on its own.
-- The file is UTF-8: sqlcmd reads it with "-f 65001".
--
-- A subject is a module number and a key: 7 and the WBID of a training need, 8 and the SemWarteListeID of a wait-list
-- entry. Its process is what its steps say. Each step holds where the process stands behind it, so the last step of a
-- subject is the state of its process, and every change of state is the insert of one row or of two rows in one
-- statement.
--
-- Two who act on one subject at the same moment draw the same step number; the primary key makes the second one fail.

-- The stages of a module, walked through in the order of their numbers, which may have gaps. A module without a row
-- here has two: 1 'Vorgesetzte', 2 'Weiterbildung'.
CREATE TABLE Sem_ProzessStufe_IT (
    ModulNr int NOT NULL,
    Stufe int NOT NULL,
    -- who decides, as it stands behind "Entscheidung durch"
    Bezeichnung nvarchar(50) NULL,
    CONSTRAINT PK_Sem_ProzessStufe_IT PRIMARY KEY (ModulNr, Stufe)
)
GO

-- Who may decide at which stage of a module. Where no row names a stage, nobody may.
CREATE TABLE Sem_ProzessRecht_IT (
    ModulNr int NOT NULL,
    Stufe int NOT NULL,
    UserID int NOT NULL,
    CONSTRAINT PK_Sem_ProzessRecht_IT PRIMARY KEY (ModulNr, Stufe, UserID)
)
GO

-- The steps of all processes. A process reaches from one Start of its subject to the next one. Rows are added, never
-- changed. The processes that wait for a decision:
--
--     SELECT ModulNr, SchluesselID, NaechsteStufe FROM Sem_ProzessSchritt_IT AS s WHERE Status = 1 AND SchrittNr =
--         (SELECT MAX(SchrittNr) FROM Sem_ProzessSchritt_IT WHERE ModulNr = s.ModulNr AND SchluesselID = s.SchluesselID)
CREATE TABLE Sem_ProzessSchritt_IT (
    ModulNr int NOT NULL,
    SchluesselID int NOT NULL,
    -- counted from 1 for each subject, on from one process to the next
    SchrittNr int NOT NULL,
    -- 'Start', 'Zustimmung', 'Ablehnung' or 'Löschung'
    Art nvarchar(20) NOT NULL,
    -- the stage at which the step was taken; NULL for 'Löschung'
    Stufe int NULL,
    -- NULL for 'Löschung'
    UserID int NULL,
    Zeitpunkt datetime NOT NULL,
    Bemerkung nvarchar(255) NULL,
    -- behind the step: 1 running, 2 approved, 3 rejected, 4 dropped
    Status tinyint NOT NULL,
    -- the stage that decides next; NULL where the process is over
    NaechsteStufe int NULL,
    -- whose subject it is: client, and number of the person; NULL where the step does not know. A process whose last step
    -- names somebody else is not looked at: keys of deleted subjects are given out again.
    MDNr int NULL,
    PersonID int NULL,
    CONSTRAINT PK_Sem_ProzessSchritt_IT PRIMARY KEY (ModulNr, SchluesselID, SchrittNr)
)
GO
