-- The sample office on SQL Server 2012 and later: the tables, views and indexes of demo/Schema.cpp
-- under the same names, with the same columns. ./run --load-sample loads this file, functions.sql,
-- procedures.sql and the data, all or nothing, into a database that has none of these tables.
-- Nothing here drops anything. Batches are separated by lines of "go". With --collation NAME it puts
-- that name in the place of Persian_100_CI_AS.
--
-- Collation. Two kinds matter, for different things.
-- That of the database: the module writes texts as 'literals' without N, which the server turns
-- into the code page of the database's collation before it does anything with them. That must be
-- code page 1256 (Persian_100_..., Arabic_...) or, from 2019 on, a _UTF8 collation; under any other
-- one the Persian letters that the module writes become "?". Code page 1256 has the Arabic yeh and
-- both kafs but no Persian yeh (U+06CC): a text typed with it is stored as typed only under a _UTF8
-- collation. The office's people type the Arabic yeh throughout.
--   CREATE DATABASE SampleOffice COLLATE Persian_100_CI_AS;
-- That of a column: the order of lists, and what = and LIKE take for equal. No column loses
-- letters: all are nvarchar. Those that people read are Persian_100_CI_AS, made for the order of
-- the Persian alphabet and on every server since 2008; Arabic_CI_AS goes by older tables. They are
-- all of one collation, because the server refuses to compare columns of two. Neither takes the
-- Arabic and the Persian yeh, or kaf, for one letter: LIKE finds a name as it was typed. What a
-- server thinks of it:
--   SELECT CASE WHEN NCHAR(1610) = NCHAR(1740) COLLATE Persian_100_CI_AS THEN 1 ELSE 0 END;
--   SELECT CASE WHEN NCHAR(1610) = NCHAR(1740) COLLATE Arabic_CI_AS THEN 1 ELSE 0 END;
--
-- A date column is a date; it needs no check of its own. Text dates are Solar Hijri, yyyy/mm/dd.

-- People and rights

CREATE TABLE dbo.tblEmployee (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  Code nvarchar(20) NOT NULL UNIQUE,
  FirstName nvarchar(60) COLLATE Persian_100_CI_AS NOT NULL,
  LastName nvarchar(80) COLLATE Persian_100_CI_AS NOT NULL,
  CellPhone nvarchar(20) NULL
);
go

CREATE TABLE dbo.tblZomirUser (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  UserName nvarchar(60) NOT NULL UNIQUE,
  EmployeeID int NOT NULL REFERENCES dbo.tblEmployee (ID)
);
go

-- FormPermissionID 0 stands for every right.
CREATE TABLE dbo.tblZomirUserPermission (
  UserID int NOT NULL REFERENCES dbo.tblZomirUser (ID),
  FormPermissionID int NOT NULL,
  PRIMARY KEY (UserID, FormPermissionID)
);
go

-- Branches, regions, paths

CREATE TABLE dbo.tblAccountBranch (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  Code nvarchar(20) NOT NULL UNIQUE,
  Name nvarchar(100) COLLATE Persian_100_CI_AS NOT NULL,
  City nvarchar(60) COLLATE Persian_100_CI_AS NOT NULL,
  Phone nvarchar(20) NULL
);
go

CREATE TABLE dbo.tblDistributionRegion (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  Description nvarchar(200) COLLATE Persian_100_CI_AS NULL,
  BranchID int NOT NULL REFERENCES dbo.tblAccountBranch (ID)
);
go

CREATE TABLE dbo.tblDistributionPath (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  Name nvarchar(200) COLLATE Persian_100_CI_AS NOT NULL,
  RegionID int NOT NULL REFERENCES dbo.tblDistributionRegion (ID)
);
CREATE INDEX ixDistributionPathRegion ON dbo.tblDistributionPath (RegionID);
go

CREATE TABLE dbo.tblSaleSupervisor (
  EmployeeID int NOT NULL PRIMARY KEY REFERENCES dbo.tblEmployee (ID),
  BranchID int NOT NULL REFERENCES dbo.tblAccountBranch (ID)
);
go

CREATE TABLE dbo.tblSalePromoter (
  EmployeeID int NOT NULL PRIMARY KEY REFERENCES dbo.tblEmployee (ID),
  BranchID int NOT NULL REFERENCES dbo.tblAccountBranch (ID)
);
go

CREATE TABLE dbo.tblSaleSupervisorPromoter (
  SupervisorID int NOT NULL REFERENCES dbo.tblSaleSupervisor (EmployeeID),
  PromoterID int NOT NULL REFERENCES dbo.tblSalePromoter (EmployeeID),
  PRIMARY KEY (SupervisorID, PromoterID)
);
go

CREATE TABLE dbo.tblDistributionPathPromoters (
  EmployeeID int NOT NULL REFERENCES dbo.tblSalePromoter (EmployeeID),
  PathID int NOT NULL REFERENCES dbo.tblDistributionPath (ID),
  PRIMARY KEY (EmployeeID, PathID)
);
go

-- Customers

CREATE TABLE dbo.tblZomirWorkActivity (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  Code nvarchar(20) NOT NULL UNIQUE,
  Name nvarchar(100) COLLATE Persian_100_CI_AS NOT NULL
);
go

CREATE TABLE dbo.tblOrganization (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  Code nvarchar(20) NOT NULL UNIQUE,
  FirstName nvarchar(60) COLLATE Persian_100_CI_AS NULL,
  Name nvarchar(200) COLLATE Persian_100_CI_AS NULL,
  Address nvarchar(500) COLLATE Persian_100_CI_AS NULL,
  CellPhone nvarchar(20) NULL,
  Phone1 nvarchar(20) NULL,
  Phone2 nvarchar(20) NULL,
  WorkActivityID int NULL REFERENCES dbo.tblZomirWorkActivity (ID)
);
go

-- The paths on which a customer is visited. Two rows for one customer are allowed, and bad: the batch
-- form shows the customer on two lines, a commit that takes both writes four visits a day (one line
-- alone: two), and every search that meets a visit of the customer ends in error 512.
-- docs/reliability.md has a query that finds such customers.
CREATE TABLE dbo.tblDistributionOrganization (
  OrganizationID int NOT NULL REFERENCES dbo.tblOrganization (ID),
  PathID int NOT NULL REFERENCES dbo.tblDistributionPath (ID),
  BranchID int NULL REFERENCES dbo.tblAccountBranch (ID),
  PRIMARY KEY (OrganizationID, PathID)
);
CREATE INDEX ixDistributionOrganizationPath ON dbo.tblDistributionOrganization (PathID);
go

-- Programs

CREATE TABLE dbo.tblDistributionPromoterProgram (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  CreatorID int NULL REFERENCES dbo.tblZomirUser (ID),
  CreateDate date NULL,
  FarsiCreateDate nvarchar(10) NULL,
  BranchID int NULL REFERENCES dbo.tblAccountBranch (ID),
  SupervisorID int NULL REFERENCES dbo.tblEmployee (ID),
  Notes nvarchar(max) COLLATE Persian_100_CI_AS NULL,
  Code int NULL
);
go

CREATE TABLE dbo.tblDistributionPromoterProgramDetail (
  ProgramID int NOT NULL REFERENCES dbo.tblDistributionPromoterProgram (ID),
  PromoterID int NOT NULL REFERENCES dbo.tblEmployee (ID),
  FarsiVisitDate nvarchar(10) NOT NULL,
  VisitDate date NOT NULL,
  CustomerID int NOT NULL REFERENCES dbo.tblOrganization (ID),
  Notes nvarchar(max) COLLATE Persian_100_CI_AS NULL,
  Sequence int NOT NULL
);
-- The editor shows a program's visits by promoter and day: the rows themselves lie so. There is no
-- unique key: the batch insert of a customer on two paths would fail on it, with all other visits of
-- the batch.
CREATE CLUSTERED INDEX ixPromoterProgramDetailGroup
  ON dbo.tblDistributionPromoterProgramDetail (ProgramID, PromoterID, VisitDate, FarsiVisitDate);
-- The batch insert asks for every new row whether the visit is there already, comparing its date
-- without slashes. A customer has few visits in one program, so the customer leads to them; a
-- computed column of the date would bind every client that writes here to the SET options that such
-- an index asks for.
CREATE INDEX ixPromoterProgramDetailVisit
  ON dbo.tblDistributionPromoterProgramDetail (ProgramID, PromoterID, CustomerID, FarsiVisitDate);
-- A report that lists a program by days.
CREATE INDEX ixPromoterProgramDetailDay
  ON dbo.tblDistributionPromoterProgramDetail (ProgramID, VisitDate);
go

-- What a promoter reported of a visit. It keeps its program from being deleted.
CREATE TABLE dbo.tblDistributionPromoterProgramVisitResult (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  ProgramID int NOT NULL REFERENCES dbo.tblDistributionPromoterProgram (ID),
  PromoterID int NOT NULL REFERENCES dbo.tblEmployee (ID),
  CustomerID int NOT NULL REFERENCES dbo.tblOrganization (ID),
  FarsiVisitDate nvarchar(10) NOT NULL,
  VisitDate date NOT NULL,
  Result nvarchar(500) COLLATE Persian_100_CI_AS NOT NULL
);
CREATE INDEX ixPromoterProgramVisitResultProgram
  ON dbo.tblDistributionPromoterProgramVisitResult (ProgramID);
go

-- Accounting

CREATE TABLE dbo.tblAccount (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  Code nvarchar(20) NOT NULL UNIQUE,
  Name nvarchar(200) COLLATE Persian_100_CI_AS NOT NULL
);
go

-- What an account is followed by: a branch (19), a person, ...
CREATE TABLE dbo.tblAccountRelatedClasses (
  AccountID int NOT NULL REFERENCES dbo.tblAccount (ID),
  ClassID int NOT NULL,
  Sequence int NOT NULL,
  PRIMARY KEY (AccountID, ClassID)
);
go

CREATE TABLE dbo.tblAccountDocument (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  Code int NOT NULL UNIQUE,
  DocumentDate date NOT NULL,
  FarsiDocumentDate nvarchar(10) NOT NULL,
  Description nvarchar(500) COLLATE Persian_100_CI_AS NULL
);
go

-- FormTypeID and FormID: the form that the line was posted for, 3308 for a promoter program.
CREATE TABLE dbo.tblAccountDocumentDetail (
  DocumentID int NOT NULL REFERENCES dbo.tblAccountDocument (ID),
  RowNumber int NOT NULL,
  AccountID int NOT NULL REFERENCES dbo.tblAccount (ID),
  BranchID int NULL REFERENCES dbo.tblAccountBranch (ID),
  Description nvarchar(500) COLLATE Persian_100_CI_AS NULL,
  Debit bigint NOT NULL DEFAULT 0,
  Credit bigint NOT NULL DEFAULT 0,
  FormTypeID int NULL,
  FormID int NULL,
  PRIMARY KEY (DocumentID, RowNumber)
);
CREATE INDEX ixAccountDocumentDetailForm ON dbo.tblAccountDocumentDetail (FormTypeID, FormID);
go

CREATE TABLE dbo.tblAccountDocumentObjects (
  DocumentID int NOT NULL,
  RowNumber int NOT NULL,
  Sequence int NOT NULL,
  ClassID int NOT NULL,
  ObjectID int NOT NULL,
  PRIMARY KEY (DocumentID, RowNumber, ClassID),
  FOREIGN KEY (DocumentID, RowNumber)
    REFERENCES dbo.tblAccountDocumentDetail (DocumentID, RowNumber) ON DELETE CASCADE
);
go

CREATE TABLE dbo.tblAssetGroup (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  Name nvarchar(100) COLLATE Persian_100_CI_AS NOT NULL,
  AssetGroupAccountID int NULL REFERENCES dbo.tblAccount (ID)
);
go

-- Shared by the forms of the suite

CREATE TABLE dbo.tblZomirFormAction (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  EventID int NULL,
  FormCode nvarchar(50) NULL,
  FormTypeID int NULL,
  Description nvarchar(1000) COLLATE Persian_100_CI_AS NULL,
  UserID int NULL,
  EventDate date NULL,
  FarsiEventDate nvarchar(10) NULL,
  EventTime int NULL
);
go

CREATE TABLE dbo.tblZomirFormAttachment (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  FormTypeID int NOT NULL,
  FormID int NOT NULL,
  FileName nvarchar(260) COLLATE Persian_100_CI_AS NOT NULL,
  Content varbinary(max) NOT NULL
);
CREATE INDEX ixZomirFormAttachmentForm ON dbo.tblZomirFormAttachment (FormTypeID, FormID);
go

CREATE TABLE dbo.tblZomirReportTemplate (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  FormTypeID int NOT NULL,
  Title nvarchar(200) COLLATE Persian_100_CI_AS NOT NULL,
  FilePath nvarchar(260) NULL
);
CREATE INDEX ixZomirReportTemplateForm ON dbo.tblZomirReportTemplate (FormTypeID);
go

CREATE TABLE dbo.tblZomirBasePath (
  ID int NOT NULL PRIMARY KEY,
  BasePath nvarchar(1000) NULL
);
go

CREATE VIEW dbo.vwZomirBasePath AS
  SELECT ID, BasePath FROM dbo.tblZomirBasePath;
go

-- What the selectors show: a major view for the list, a minor one for the name of an id. No view
-- may show a column by which a statement of the module refers to it from outside (PromoterID,
-- SupervisorID, BranchID).

CREATE VIEW dbo.vwEmployeeMajor AS
  SELECT ID, Code, FirstName + N' ' + LastName AS Name, CellPhone FROM dbo.tblEmployee;
go

CREATE VIEW dbo.vwEmployeeMinor AS
  SELECT ID, FirstName + N' ' + LastName AS Name FROM dbo.tblEmployee;
go

CREATE VIEW dbo.vwUserMajor AS
  SELECT u.ID, u.UserName AS Code, e.FirstName + N' ' + e.LastName AS Name, e.CellPhone
  FROM dbo.tblZomirUser AS u INNER JOIN dbo.tblEmployee AS e ON e.ID = u.EmployeeID;
go

CREATE VIEW dbo.vwUserMinor AS
  SELECT u.ID, e.FirstName + N' ' + e.LastName AS Name
  FROM dbo.tblZomirUser AS u INNER JOIN dbo.tblEmployee AS e ON e.ID = u.EmployeeID;
go

CREATE VIEW dbo.vwSaleSupervisorMajor AS
  SELECT e.ID, e.Code, e.FirstName + N' ' + e.LastName AS Name, b.Name AS Branch, e.CellPhone
  FROM dbo.tblSaleSupervisor AS s INNER JOIN dbo.tblEmployee AS e ON e.ID = s.EmployeeID
  INNER JOIN dbo.tblAccountBranch AS b ON b.ID = s.BranchID;
go

CREATE VIEW dbo.vwSaleSupervisorMinor AS
  SELECT e.ID, e.FirstName + N' ' + e.LastName AS Name
  FROM dbo.tblSaleSupervisor AS s INNER JOIN dbo.tblEmployee AS e ON e.ID = s.EmployeeID;
go

CREATE VIEW dbo.vwSalePromoterMajor AS
  SELECT e.ID, e.Code, e.FirstName + N' ' + e.LastName AS Name, b.Name AS Branch, e.CellPhone
  FROM dbo.tblSalePromoter AS s INNER JOIN dbo.tblEmployee AS e ON e.ID = s.EmployeeID
  INNER JOIN dbo.tblAccountBranch AS b ON b.ID = s.BranchID;
go

CREATE VIEW dbo.vwSalePromoterMinor AS
  SELECT e.ID, e.FirstName + N' ' + e.LastName AS Name
  FROM dbo.tblSalePromoter AS s INNER JOIN dbo.tblEmployee AS e ON e.ID = s.EmployeeID;
go

CREATE VIEW dbo.vwAccountBranchMajor AS
  SELECT ID, Code, Name, City, Phone FROM dbo.tblAccountBranch;
go

CREATE VIEW dbo.vwAccountBranchMinor AS
  SELECT ID, Name FROM dbo.tblAccountBranch;
go

CREATE VIEW dbo.vwOrganizationMajor AS
  SELECT ID, Code, LTRIM(RTRIM(ISNULL(FirstName, N'') + N' ' + ISNULL(Name, N''))) AS Name, Phone1,
    Address
  FROM dbo.tblOrganization;
go

CREATE VIEW dbo.vwOrganizationMinor AS
  SELECT ID, LTRIM(RTRIM(ISNULL(FirstName, N'') + N' ' + ISNULL(Name, N''))) AS Name
  FROM dbo.tblOrganization;
go

CREATE VIEW dbo.vwZomirWorkActivityMajor AS
  SELECT ID, Code, Name FROM dbo.tblZomirWorkActivity;
go

CREATE VIEW dbo.vwZomirWorkActivityMinor AS
  SELECT ID, Name FROM dbo.tblZomirWorkActivity;
go

CREATE VIEW dbo.vwDistributionPromoterProgramMajor AS
  SELECT ID, Code, ISNULL(Notes, N'برنامه ' + CONVERT(nvarchar(11), ID)) AS Name, FarsiCreateDate
  FROM dbo.tblDistributionPromoterProgram;
go

CREATE VIEW dbo.vwDistributionPromoterProgramMinor AS
  SELECT ID, ISNULL(Notes, N'برنامه ' + CONVERT(nvarchar(11), ID)) AS Name
  FROM dbo.tblDistributionPromoterProgram;
go
