-- The suite's two procedures on SQL Server 2012 and later, for a database that has not the suite's
-- own.

-- 1 when the user has the permission, or the permission 0, which stands for all; else 0, also for an
-- unknown user.
CREATE PROCEDURE dbo.spZomirHasPermission
  @UserID int,
  @FormPermissionID int
AS
BEGIN
  SET NOCOUNT ON;
  IF EXISTS (
    SELECT 1 FROM dbo.tblZomirUserPermission
    WHERE UserID = @UserID AND FormPermissionID IN (@FormPermissionID, 0)
  )
    RETURN 1;
  RETURN 0;
END;
go

-- Adds an entry to the forms' log. The entry's identity belongs to the procedure's own scope: the
-- caller's SCOPE_IDENTITY() stays what it was.
CREATE PROCEDURE dbo.spZomirInsertFormAction
  @EventID int,
  @FormCode nvarchar(50),
  @FormTypeID int,
  @Description nvarchar(1000),
  @UserID int,
  @EventDate date,
  @FarsiEventDate nvarchar(10),
  @EventTime int
AS
BEGIN
  SET NOCOUNT ON;
  INSERT INTO dbo.tblZomirFormAction (
    EventID, FormCode, FormTypeID, Description, UserID, EventDate, FarsiEventDate, EventTime
  )
  VALUES (
    @EventID, @FormCode, @FormTypeID, @Description, @UserID, @EventDate, @FarsiEventDate, @EventTime
  );
  RETURN 0;
END;
go
