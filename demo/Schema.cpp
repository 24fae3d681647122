#include "demo/Schema.h"

#include <string>

#include "text/Text.h"

namespace demo {

namespace {

/// Of the column $; most days need no calendar.
constexpr std::string_view kIsDay =
    "$ BETWEEN 10000000 AND 99999999 AND ($ / 100 % 100 BETWEEN 1 AND 12 AND $ % 100 BETWEEN 1 AND "
    "28 OR $ = strftime('%Y%m%d', substr($, 1, 4) || '-' || substr($, 5, 2) || '-' || "
    "substr($, 7, 2)))";

constexpr std::string_view kSchema = R"sql(
-- People and rights

CREATE TABLE tblEmployee (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Code NVARCHAR(20) NOT NULL UNIQUE COLLATE Persian,
  FirstName NVARCHAR(60) NOT NULL COLLATE Persian,
  LastName NVARCHAR(80) NOT NULL COLLATE Persian,
  CellPhone NVARCHAR(20) COLLATE Persian
);

CREATE TABLE tblZomirUser (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  UserName NVARCHAR(60) NOT NULL UNIQUE COLLATE Persian,
  EmployeeID INTEGER NOT NULL REFERENCES tblEmployee (ID)
);

-- FormPermissionID 0 stands for every right.
CREATE TABLE tblZomirUserPermission (
  UserID INTEGER NOT NULL REFERENCES tblZomirUser (ID),
  FormPermissionID INTEGER NOT NULL,
  PRIMARY KEY (UserID, FormPermissionID)
) WITHOUT ROWID;

-- Branches, regions, paths

CREATE TABLE tblAccountBranch (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Code NVARCHAR(20) NOT NULL UNIQUE COLLATE Persian,
  Name NVARCHAR(100) NOT NULL COLLATE Persian,
  City NVARCHAR(60) NOT NULL COLLATE Persian,
  Phone NVARCHAR(20) COLLATE Persian
);

CREATE TABLE tblDistributionRegion (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Description NVARCHAR(200) COLLATE Persian,
  BranchID INTEGER NOT NULL REFERENCES tblAccountBranch (ID)
);

CREATE TABLE tblDistributionPath (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Name NVARCHAR(200) NOT NULL COLLATE Persian,
  RegionID INTEGER NOT NULL REFERENCES tblDistributionRegion (ID)
);
CREATE INDEX ixDistributionPathRegion ON tblDistributionPath (RegionID);

CREATE TABLE tblSaleSupervisor (
  EmployeeID INTEGER PRIMARY KEY REFERENCES tblEmployee (ID),
  BranchID INTEGER NOT NULL REFERENCES tblAccountBranch (ID)
);

CREATE TABLE tblSalePromoter (
  EmployeeID INTEGER PRIMARY KEY REFERENCES tblEmployee (ID),
  BranchID INTEGER NOT NULL REFERENCES tblAccountBranch (ID)
);

CREATE TABLE tblSaleSupervisorPromoter (
  SupervisorID INTEGER NOT NULL REFERENCES tblSaleSupervisor (EmployeeID),
  PromoterID INTEGER NOT NULL REFERENCES tblSalePromoter (EmployeeID),
  PRIMARY KEY (SupervisorID, PromoterID)
) WITHOUT ROWID;

CREATE TABLE tblDistributionPathPromoters (
  EmployeeID INTEGER NOT NULL REFERENCES tblSalePromoter (EmployeeID),
  PathID INTEGER NOT NULL REFERENCES tblDistributionPath (ID),
  PRIMARY KEY (EmployeeID, PathID)
) WITHOUT ROWID;

-- Customers

CREATE TABLE tblZomirWorkActivity (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Code NVARCHAR(20) NOT NULL UNIQUE COLLATE Persian,
  Name NVARCHAR(100) NOT NULL COLLATE Persian
);

CREATE TABLE tblOrganization (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Code NVARCHAR(20) NOT NULL UNIQUE COLLATE Persian,
  FirstName NVARCHAR(60) COLLATE Persian,
  Name NVARCHAR(200) COLLATE Persian,
  Address NVARCHAR(500) COLLATE Persian,
  CellPhone NVARCHAR(20) COLLATE Persian,
  Phone1 NVARCHAR(20) COLLATE Persian,
  Phone2 NVARCHAR(20) COLLATE Persian,
  WorkActivityID INTEGER REFERENCES tblZomirWorkActivity (ID)
);

CREATE TABLE tblDistributionOrganization (
  OrganizationID INTEGER NOT NULL REFERENCES tblOrganization (ID),
  PathID INTEGER NOT NULL REFERENCES tblDistributionPath (ID),
  BranchID INTEGER REFERENCES tblAccountBranch (ID),
  PRIMARY KEY (OrganizationID, PathID)
) WITHOUT ROWID;
CREATE INDEX ixDistributionOrganizationPath ON tblDistributionOrganization (PathID);

-- Programs

CREATE TABLE tblDistributionPromoterProgram (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  CreatorID INTEGER REFERENCES tblZomirUser (ID),
  CreateDate DATE CHECK (CreateDate IS A DAY),
  FarsiCreateDate NVARCHAR(10) COLLATE Persian,
  BranchID INTEGER REFERENCES tblAccountBranch (ID),
  SupervisorID INTEGER REFERENCES tblEmployee (ID),
  Notes TEXT COLLATE Persian,
  Code INTEGER
);

CREATE TABLE tblDistributionPromoterProgramDetail (
  ProgramID INTEGER NOT NULL REFERENCES tblDistributionPromoterProgram (ID),
  PromoterID INTEGER NOT NULL REFERENCES tblEmployee (ID),
  FarsiVisitDate NVARCHAR(10) NOT NULL COLLATE Persian,
  VisitDate DATE NOT NULL CHECK (VisitDate IS A DAY),
  CustomerID INTEGER NOT NULL REFERENCES tblOrganization (ID),
  Notes TEXT COLLATE Persian,
  Sequence INTEGER NOT NULL
);
-- The batch insert asks for every new row whether the visit is there already, comparing its date
-- without slashes, and adds a program's visits in the order of this index.
CREATE INDEX ixPromoterProgramDetailVisit
  ON tblDistributionPromoterProgramDetail
    (ProgramID, PromoterID, replace(FarsiVisitDate, '/', ''), CustomerID);
-- The editor shows a program grouped so; the index gives it the groups without sorting the visits,
-- and the batch form one promoter's day.
CREATE INDEX ixPromoterProgramDetailGroup
  ON tblDistributionPromoterProgramDetail
    (ProgramID, PromoterID, FarsiVisitDate, VisitDate, Notes);
-- A report that lists a program by days begins with the first day's visits, without sorting all.
CREATE INDEX ixPromoterProgramDetailDay
  ON tblDistributionPromoterProgramDetail (ProgramID, VisitDate);

-- What a promoter reported of a visit. It keeps its program from being deleted.
CREATE TABLE tblDistributionPromoterProgramVisitResult (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  ProgramID INTEGER NOT NULL REFERENCES tblDistributionPromoterProgram (ID),
  PromoterID INTEGER NOT NULL REFERENCES tblEmployee (ID),
  CustomerID INTEGER NOT NULL REFERENCES tblOrganization (ID),
  FarsiVisitDate NVARCHAR(10) NOT NULL COLLATE Persian,
  VisitDate DATE NOT NULL CHECK (VisitDate IS A DAY),
  Result NVARCHAR(500) NOT NULL COLLATE Persian
);
CREATE INDEX ixPromoterProgramVisitResultProgram
  ON tblDistributionPromoterProgramVisitResult (ProgramID);

-- Accounting

CREATE TABLE tblAccount (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Code NVARCHAR(20) NOT NULL UNIQUE COLLATE Persian,
  Name NVARCHAR(200) NOT NULL COLLATE Persian
);

-- What an account is followed by: a branch (19), a person, ...
CREATE TABLE tblAccountRelatedClasses (
  AccountID INTEGER NOT NULL REFERENCES tblAccount (ID),
  ClassID INTEGER NOT NULL,
  Sequence INTEGER NOT NULL,
  PRIMARY KEY (AccountID, ClassID)
) WITHOUT ROWID;

CREATE TABLE tblAccountDocument (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Code INTEGER NOT NULL UNIQUE,
  DocumentDate DATE NOT NULL CHECK (DocumentDate IS A DAY),
  FarsiDocumentDate NVARCHAR(10) NOT NULL COLLATE Persian,
  Description NVARCHAR(500) COLLATE Persian
);

-- FormTypeID and FormID: the form that the line was posted for, 3308 for a promoter program.
CREATE TABLE tblAccountDocumentDetail (
  DocumentID INTEGER NOT NULL REFERENCES tblAccountDocument (ID),
  RowNumber INTEGER NOT NULL,
  AccountID INTEGER NOT NULL REFERENCES tblAccount (ID),
  BranchID INTEGER REFERENCES tblAccountBranch (ID),
  Description NVARCHAR(500) COLLATE Persian,
  Debit BIGINT NOT NULL DEFAULT 0,
  Credit BIGINT NOT NULL DEFAULT 0,
  FormTypeID INTEGER,
  FormID INTEGER,
  PRIMARY KEY (DocumentID, RowNumber)
) WITHOUT ROWID;
CREATE INDEX ixAccountDocumentDetailForm ON tblAccountDocumentDetail (FormTypeID, FormID);

CREATE TABLE tblAccountDocumentObjects (
  DocumentID INTEGER NOT NULL,
  RowNumber INTEGER NOT NULL,
  Sequence INTEGER NOT NULL,
  ClassID INTEGER NOT NULL,
  ObjectID INTEGER NOT NULL,
  PRIMARY KEY (DocumentID, RowNumber, ClassID),
  FOREIGN KEY (DocumentID, RowNumber)
    REFERENCES tblAccountDocumentDetail (DocumentID, RowNumber) ON DELETE CASCADE
) WITHOUT ROWID;

CREATE TABLE tblAssetGroup (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  Name NVARCHAR(100) NOT NULL COLLATE Persian,
  AssetGroupAccountID INTEGER REFERENCES tblAccount (ID)
);

-- Shared by the forms of the suite

CREATE TABLE tblZomirFormAction (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  EventID INTEGER,
  FormCode NVARCHAR(50) COLLATE Persian,
  FormTypeID INTEGER,
  Description NVARCHAR(1000) COLLATE Persian,
  UserID INTEGER,
  EventDate DATE CHECK (EventDate IS A DAY),
  FarsiEventDate NVARCHAR(10) COLLATE Persian,
  EventTime INTEGER
);

CREATE TABLE tblZomirFormAttachment (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  FormTypeID INTEGER NOT NULL,
  FormID INTEGER NOT NULL,
  FileName NVARCHAR(260) NOT NULL COLLATE Persian,
  Content BLOB NOT NULL
);
CREATE INDEX ixZomirFormAttachmentForm ON tblZomirFormAttachment (FormTypeID, FormID);

CREATE TABLE tblZomirReportTemplate (
  ID INTEGER PRIMARY KEY AUTOINCREMENT,
  FormTypeID INTEGER NOT NULL,
  Title NVARCHAR(200) NOT NULL COLLATE Persian,
  FilePath NVARCHAR(260) COLLATE Persian
);
CREATE INDEX ixZomirReportTemplateForm ON tblZomirReportTemplate (FormTypeID);

CREATE TABLE tblZomirBasePath (
  ID INTEGER PRIMARY KEY,
  BasePath NVARCHAR(1000) COLLATE Persian
);

CREATE VIEW vwZomirBasePath AS SELECT ID, BasePath FROM tblZomirBasePath;

-- What the selectors show: a major view for the list, a minor one for the name of an id. No view
-- may show a column by which a statement of the module refers to it from outside (PromoterID,
-- SupervisorID, BranchID).

CREATE VIEW vwEmployeeMajor AS
  SELECT ID, Code, FirstName || ' ' || LastName AS Name, CellPhone FROM tblEmployee;
CREATE VIEW vwEmployeeMinor AS
  SELECT ID, FirstName || ' ' || LastName AS Name FROM tblEmployee;

CREATE VIEW vwUserMajor AS
  SELECT u.ID, u.UserName AS Code, e.FirstName || ' ' || e.LastName AS Name, e.CellPhone
  FROM tblZomirUser u INNER JOIN tblEmployee e ON e.ID = u.EmployeeID;
CREATE VIEW vwUserMinor AS
  SELECT u.ID, e.FirstName || ' ' || e.LastName AS Name
  FROM tblZomirUser u INNER JOIN tblEmployee e ON e.ID = u.EmployeeID;

CREATE VIEW vwSaleSupervisorMajor AS
  SELECT e.ID, e.Code, e.FirstName || ' ' || e.LastName AS Name, b.Name AS Branch, e.CellPhone
  FROM tblSaleSupervisor s INNER JOIN tblEmployee e ON e.ID = s.EmployeeID
  INNER JOIN tblAccountBranch b ON b.ID = s.BranchID;
CREATE VIEW vwSaleSupervisorMinor AS
  SELECT e.ID, e.FirstName || ' ' || e.LastName AS Name
  FROM tblSaleSupervisor s INNER JOIN tblEmployee e ON e.ID = s.EmployeeID;

CREATE VIEW vwSalePromoterMajor AS
  SELECT e.ID, e.Code, e.FirstName || ' ' || e.LastName AS Name, b.Name AS Branch, e.CellPhone
  FROM tblSalePromoter s INNER JOIN tblEmployee e ON e.ID = s.EmployeeID
  INNER JOIN tblAccountBranch b ON b.ID = s.BranchID;
CREATE VIEW vwSalePromoterMinor AS
  SELECT e.ID, e.FirstName || ' ' || e.LastName AS Name
  FROM tblSalePromoter s INNER JOIN tblEmployee e ON e.ID = s.EmployeeID;

CREATE VIEW vwAccountBranchMajor AS SELECT ID, Code, Name, City, Phone FROM tblAccountBranch;
CREATE VIEW vwAccountBranchMinor AS SELECT ID, Name FROM tblAccountBranch;

CREATE VIEW vwOrganizationMajor AS
  SELECT ID, Code, trim(ifnull(FirstName, '') || ' ' || ifnull(Name, '')) AS Name, Phone1, Address
  FROM tblOrganization;
CREATE VIEW vwOrganizationMinor AS
  SELECT ID, trim(ifnull(FirstName, '') || ' ' || ifnull(Name, '')) AS Name FROM tblOrganization;

CREATE VIEW vwZomirWorkActivityMajor AS SELECT ID, Code, Name FROM tblZomirWorkActivity;
CREATE VIEW vwZomirWorkActivityMinor AS SELECT ID, Name FROM tblZomirWorkActivity;

CREATE VIEW vwDistributionPromoterProgramMajor AS
  SELECT ID, Code, ifnull(Notes, 'برنامه ' || ID) AS Name, FarsiCreateDate
  FROM tblDistributionPromoterProgram;
CREATE VIEW vwDistributionPromoterProgramMinor AS
  SELECT ID, ifnull(Notes, 'برنامه ' || ID) AS Name FROM tblDistributionPromoterProgram;
)sql";

}  // namespace

std::string_view OfficeSchema() {
  static const std::string schema = [] {
    std::string whole(kSchema);
    for (const char* column : {"CreateDate", "VisitDate", "DocumentDate", "EventDate"}) {
      whole = text::Replace(whole, column + std::string(" IS A DAY"),
                            text::Replace(kIsDay, "$", column));
    }
    return whole;
  }();
  return schema;
}

}  // namespace demo
