-- The tables that statements of the module name, with a row or two.
PRAGMA synchronous = OFF;
PRAGMA journal_mode = WAL;
CREATE TABLE tblEmployee (ID INTEGER PRIMARY KEY, Name TEXT NOT NULL);
CREATE TABLE tblOrganization (ID INTEGER PRIMARY KEY, Code TEXT UNIQUE, FirstName TEXT, Name TEXT,
  Address TEXT, CellPhone TEXT, Phone1 TEXT, Phone2 TEXT, WorkActivityID INTEGER);
CREATE TABLE tblDistributionPath (ID INTEGER PRIMARY KEY, Name TEXT, RegionID INTEGER);
CREATE TABLE tblDistributionOrganization (OrganizationID INTEGER, PathID INTEGER, BranchID INTEGER);
CREATE TABLE tblDistributionPromoterProgram (ID INTEGER PRIMARY KEY AUTOINCREMENT,
  CreateDate DATE, Notes TEXT, Code INTEGER);
CREATE TABLE tblDistributionPromoterProgramDetail (
  ProgramID INTEGER NOT NULL REFERENCES tblDistributionPromoterProgram (ID),
  PromoterID INTEGER NOT NULL, FarsiVisitDate TEXT, VisitDate DATE,
  CustomerID INTEGER NOT NULL, Notes TEXT, Sequence INTEGER CHECK (Sequence < 1000));
CREATE TABLE tblZomirUserPermission (UserID INTEGER, FormPermissionID INTEGER);
CREATE TABLE tblZomirFormAction (ID INTEGER PRIMARY KEY, EventID INTEGER, FormCode TEXT,
  FormTypeID INTEGER, Description TEXT, UserID INTEGER, EventDate DATE, FarsiEventDate TEXT,
  EventTime INTEGER);
CREATE TABLE tblAccountDocumentDetail (DocumentID INTEGER, RowNumber INTEGER, FormID INTEGER,
  Description NVARCHAR(5) COLLATE Persian, Debit BIGINT, PRIMARY KEY (DocumentID, RowNumber))
  WITHOUT ROWID;
CREATE TABLE tblZomirFormAttachment (ID INTEGER PRIMARY KEY, FileName TEXT, Content BLOB,
  Shown BIT);
CREATE VIEW vwProgramDays AS
  SELECT ProgramID, VisitDate FROM tblDistributionPromoterProgramDetail;

INSERT INTO tblAccountDocumentDetail VALUES
  (1, 1, 2000000000, 'ABC', 3000000000), (1, 2, 2000000000, 'abc ', 1), (2, 1, 5, 'ي', NULL),
  (2, 2, 6, 'ی', NULL);
INSERT INTO tblEmployee VALUES (7, 'یاسر'), (8, 'پروین'), (9, 'بهار');
INSERT INTO tblOrganization VALUES
  (5, '105', 'رضا', 'کاظمی', 'تهران', '0912', '021', NULL, 1),
  (6, '106', NULL, 'نیک‌پی', NULL, NULL, NULL, NULL, NULL);
INSERT INTO tblDistributionPath VALUES (11, 'مسیر ۱', 1), (12, 'مسیر ۲', 2);
INSERT INTO tblDistributionOrganization VALUES (5, 11, 1), (6, 12, 1);
INSERT INTO tblZomirUserPermission VALUES (1, 0), (2, 111);
INSERT INTO tblDistributionPromoterProgram VALUES
  (1, '20250321', 'بهاره', NULL), (2, NULL, '', 2);
INSERT INTO tblDistributionPromoterProgramDetail VALUES
  (1, 7, '1404/01/02', '20250322', 5, 'صبح', 1), (1, 7, '1404/01/02', '20250322', 6, 'صبح', 2),
  (1, 8, '1404/01/03', '20250323', 5, NULL, 3);
