-- Tables of the seminar administration.
--
-- T-SQL for Microsoft SQL Server and for the embedded database alike. The batches are separated by lines "GO" and are
-- to be run in order on an empty database. The file is UTF-8: sqlcmd reads it with "-f 65001".
--
-- Assumed of the database: texts compare without case (latin1_general_ci_as). The library numbers new rows itself with
-- the greatest key plus one, so no key is an identity column. 0 and an empty reference are stored as NULL.

-- The active client. The first row counts; the library reads MDNR and nothing else.
CREATE TABLE OpactMD (
    MDNR int NOT NULL,
    Bezeichnung nvarchar(50) NULL,
    CONSTRAINT PK_OpactMD PRIMARY KEY (MDNR)
)
GO

-- Settings of the suite, as text. The library reads option 30: '-1' where the constants tables are kept per client,
-- '0' where all clients share them. The row of option 30 must be there.
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
    -- who looks after the seminar
    Sachbearbeiter int NULL,
    Status int NULL,
    -- goal and content
    InhaltZielID int NULL,
    TeilnehmerMIN int NULL,
    TeilnehmerMAX int NULL,
    TeilnehmerOPT int NULL,
    -- hours in all, and the number of meetings they are spread over
    Stunden float NULL,
    Sitzungen int NULL,
    -- recurrence of the meetings
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

-- The list of a client asks for its number and for -1.
CREATE INDEX IX_Sem_Katalog_IT_MDNr ON Sem_Katalog_IT (MDNr)
GO
