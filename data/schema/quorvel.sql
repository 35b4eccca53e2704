-- Quorvel's tables and stored procedures: the security model (ttw...), the key counters, and all procedures that the
-- component calls.
--
-- T-SQL for SQL Server 2012 or later and for the embedded engine, restricted to statements that both understand. Run it
-- in the host's database, as a user whose default schema is that of the component's login, usually dbo: the names here
-- have no schema. A second run leaves tables and rows alone, brings the procedures to this version and keeps the grants
-- on them. The permissions for the component's login are in grants.sql.
--
-- The memo table tciMemo and the branches ttwBranch belong to the host, as tables, views or synonyms. They are created
-- only when they are missing. If the host's tciMemo has other column names, adapt the procedures that read and write it.
-- `quorvel init` keeps adapted ones; after a run with another tool adapt them again.

SET ANSI_NULLS ON
GO
SET QUOTED_IDENTIFIER ON
GO

IF OBJECT_ID('ttwBranch') IS NULL
BEGIN
  CREATE TABLE ttwBranch (
    BranchID varchar(30) NOT NULL CONSTRAINT PK_ttwBranch PRIMARY KEY,
    BranchName nvarchar(60) NOT NULL CONSTRAINT DF_ttwBranch_BranchName DEFAULT (''),
    WhseKey int NULL,
    ShipMethKey int NULL,
    SalesTerritoryKey int NULL,
    SalesAcctKey int NULL
  );
END
GO

-- BranchID has no foreign key: it may be empty, and the host may add or remove branches at any time. IsActive is shown
-- in the administration and has no effect on rights.
IF OBJECT_ID('ttwUser', 'U') IS NULL
BEGIN
  CREATE TABLE ttwUser (
    UserKey int IDENTITY(1,1) NOT NULL CONSTRAINT PK_ttwUser PRIMARY KEY,
    UserID varchar(30) NOT NULL CONSTRAINT UQ_ttwUser_UserID UNIQUE,
    LastName nvarchar(60) NOT NULL CONSTRAINT DF_ttwUser_LastName DEFAULT (''),
    FirstName nvarchar(60) NOT NULL CONSTRAINT DF_ttwUser_FirstName DEFAULT (''),
    BranchID varchar(30) NOT NULL CONSTRAINT DF_ttwUser_BranchID DEFAULT (''),
    IsActive smallint NOT NULL CONSTRAINT DF_ttwUser_IsActive DEFAULT (0)
  );
END
GO

IF OBJECT_ID('ttwGroup', 'U') IS NULL
BEGIN
  CREATE TABLE ttwGroup (
    GroupKey int IDENTITY(1,1) NOT NULL CONSTRAINT PK_ttwGroup PRIMARY KEY,
    GroupID varchar(30) NOT NULL CONSTRAINT UQ_ttwGroup_GroupID UNIQUE,
    Caption nvarchar(100) NOT NULL CONSTRAINT DF_ttwGroup_Caption DEFAULT (''),
    Comments nvarchar(500) NOT NULL CONSTRAINT DF_ttwGroup_Comments DEFAULT ('')
  );
END
GO

-- Every new user joins the group with key 1, so this group must be the first.
IF NOT EXISTS (SELECT * FROM ttwGroup WHERE GroupID = 'Default')
  INSERT INTO ttwGroup (GroupID, Caption) VALUES ('Default', N'Default');
GO

IF OBJECT_ID('ttwGroupMember', 'U') IS NULL
BEGIN
  CREATE TABLE ttwGroupMember (
    GroupKey int NOT NULL CONSTRAINT FK_ttwGroupMember_Group REFERENCES ttwGroup (GroupKey),
    UserKey int NOT NULL CONSTRAINT FK_ttwGroupMember_User REFERENCES ttwUser (UserKey),
    CONSTRAINT PK_ttwGroupMember PRIMARY KEY (GroupKey, UserKey)
  );
  CREATE INDEX IX_ttwGroupMember_User ON ttwGroupMember (UserKey, GroupKey);
END
GO

IF OBJECT_ID('ttwRight', 'U') IS NULL
BEGIN
  CREATE TABLE ttwRight (
    RightKey int IDENTITY(1,1) NOT NULL CONSTRAINT PK_ttwRight PRIMARY KEY,
    RightID varchar(30) NOT NULL CONSTRAINT UQ_ttwRight_RightID UNIQUE,
    Caption nvarchar(100) NOT NULL CONSTRAINT DF_ttwRight_Caption DEFAULT (''),
    Comments nvarchar(500) NOT NULL CONSTRAINT DF_ttwRight_Comments DEFAULT ('')
  );
END
GO

IF OBJECT_ID('ttwRightAssignment', 'U') IS NULL
BEGIN
  CREATE TABLE ttwRightAssignment (
    GroupKey int NOT NULL CONSTRAINT FK_ttwRightAssignment_Group REFERENCES ttwGroup (GroupKey),
    RightKey int NOT NULL CONSTRAINT FK_ttwRightAssignment_Right REFERENCES ttwRight (RightKey),
    CONSTRAINT PK_ttwRightAssignment PRIMARY KEY (GroupKey, RightKey)
  );
  CREATE INDEX IX_ttwRightAssignment_Right ON ttwRightAssignment (RightKey);
END
GO

-- AcuityEntityKey is the host's number for the entity, which is stored with the memos. The remark procedures take it as a
-- smallint.
IF OBJECT_ID('ttwRemarkEntity', 'U') IS NULL
BEGIN
  CREATE TABLE ttwRemarkEntity (
    RemarkEntityKey int IDENTITY(1,1) NOT NULL CONSTRAINT PK_ttwRemarkEntity PRIMARY KEY,
    RemarkEntityID varchar(30) NOT NULL CONSTRAINT UQ_ttwRemarkEntity_RemarkEntityID UNIQUE,
    Caption nvarchar(100) NOT NULL CONSTRAINT DF_ttwRemarkEntity_Caption DEFAULT (''),
    spGetOwnerName nvarchar(128) NOT NULL CONSTRAINT DF_ttwRemarkEntity_spGetOwnerName DEFAULT (''),
    AcuityEntityKey int NOT NULL CONSTRAINT DF_ttwRemarkEntity_AcuityEntityKey DEFAULT (0),
    Comments nvarchar(500) NOT NULL CONSTRAINT DF_ttwRemarkEntity_Comments DEFAULT ('')
  );
END
GO

IF OBJECT_ID('ttwRemarkType', 'U') IS NULL
BEGIN
  CREATE TABLE ttwRemarkType (
    RemarkTypeKey int IDENTITY(1,1) NOT NULL CONSTRAINT PK_ttwRemarkType PRIMARY KEY,
    RemarkTypeID varchar(30) NOT NULL CONSTRAINT UQ_ttwRemarkType_RemarkTypeID UNIQUE,
    Caption nvarchar(100) NOT NULL CONSTRAINT DF_ttwRemarkType_Caption DEFAULT (''),
    RemarkEntityKey int NOT NULL CONSTRAINT FK_ttwRemarkType_Entity REFERENCES ttwRemarkEntity (RemarkEntityKey),
    Comments nvarchar(500) NOT NULL CONSTRAINT DF_ttwRemarkType_Comments DEFAULT ('')
  );
  CREATE INDEX IX_ttwRemarkType_Entity ON ttwRemarkType (RemarkEntityKey);
END
GO

IF OBJECT_ID('ttwRemarkRight', 'U') IS NULL
BEGIN
  CREATE TABLE ttwRemarkRight (
    RemarkRightKey int IDENTITY(1,1) NOT NULL CONSTRAINT PK_ttwRemarkRight PRIMARY KEY,
    RemarkTypeKey int NOT NULL CONSTRAINT FK_ttwRemarkRight_Type REFERENCES ttwRemarkType (RemarkTypeKey),
    GroupKey int NOT NULL CONSTRAINT FK_ttwRemarkRight_Group REFERENCES ttwGroup (GroupKey),
    CanCreate smallint NOT NULL CONSTRAINT DF_ttwRemarkRight_CanCreate DEFAULT (0),
    CanRead smallint NOT NULL CONSTRAINT DF_ttwRemarkRight_CanRead DEFAULT (0),
    CanUpdate smallint NOT NULL CONSTRAINT DF_ttwRemarkRight_CanUpdate DEFAULT (0),
    CanDelete smallint NOT NULL CONSTRAINT DF_ttwRemarkRight_CanDelete DEFAULT (0),
    CONSTRAINT UQ_ttwRemarkRight UNIQUE (GroupKey, RemarkTypeKey)
  );
  CREATE INDEX IX_ttwRemarkRight_Type ON ttwRemarkRight (RemarkTypeKey);
END
GO

IF OBJECT_ID('ttwContext', 'U') IS NULL
BEGIN
  CREATE TABLE ttwContext (
    ContextKey int IDENTITY(1,1) NOT NULL CONSTRAINT PK_ttwContext PRIMARY KEY,
    ContextID varchar(30) NOT NULL CONSTRAINT UQ_ttwContext_ContextID UNIQUE,
    Caption nvarchar(100) NOT NULL CONSTRAINT DF_ttwContext_Caption DEFAULT (''),
    RemarkEntityKey int NOT NULL CONSTRAINT FK_ttwContext_Entity REFERENCES ttwRemarkEntity (RemarkEntityKey),
    Comments nvarchar(500) NOT NULL CONSTRAINT DF_ttwContext_Comments DEFAULT (''),
    GroupByType smallint NOT NULL CONSTRAINT DF_ttwContext_GroupByType DEFAULT (0),
    RowHeight int NOT NULL CONSTRAINT DF_ttwContext_RowHeight DEFAULT (1),
    AllowRowSizing smallint NOT NULL CONSTRAINT DF_ttwContext_AllowRowSizing DEFAULT (0),
    EditBehavior int NOT NULL CONSTRAINT DF_ttwContext_EditBehavior DEFAULT (0)
  );
  CREATE INDEX IX_ttwContext_Entity ON ttwContext (RemarkEntityKey);
END
GO

-- A type may only be in contexts of its own entity; the administration offers no others. DisplaySeq is not unique: the
-- administration swaps two positions with two updates.
IF OBJECT_ID('ttwRemarkContext', 'U') IS NULL
BEGIN
  CREATE TABLE ttwRemarkContext (
    ContextKey int NOT NULL CONSTRAINT FK_ttwRemarkContext_Context REFERENCES ttwContext (ContextKey),
    RemarkTypeKey int NOT NULL CONSTRAINT FK_ttwRemarkContext_Type REFERENCES ttwRemarkType (RemarkTypeKey),
    DisplaySeq int NOT NULL CONSTRAINT DF_ttwRemarkContext_DisplaySeq DEFAULT (0),
    Priority smallint NOT NULL CONSTRAINT DF_ttwRemarkContext_Priority DEFAULT (0),
    CONSTRAINT PK_ttwRemarkContext PRIMARY KEY (ContextKey, RemarkTypeKey)
  );
  CREATE INDEX IX_ttwRemarkContext_Type ON ttwRemarkContext (RemarkTypeKey);
END
GO

-- A memo refers to its type by the type's identifier, so that it outlives the type.
IF OBJECT_ID('tciMemo') IS NULL
BEGIN
  CREATE TABLE tciMemo (
    MemoKey int NOT NULL CONSTRAINT PK_tciMemo PRIMARY KEY,
    MemoType varchar(30) NOT NULL,
    EntityType smallint NOT NULL,
    OwnerKey int NOT NULL,
    DateStamp datetime NOT NULL,
    UserID varchar(30) NOT NULL,
    MemoText nvarchar(max) NOT NULL
  );
  CREATE INDEX IX_tciMemo_Owner ON tciMemo (EntityType, OwnerKey, MemoType);
END
GO

-- The last key that spGetNextSurrogateKey returned for each table.
IF OBJECT_ID('ttwSurrogateKey', 'U') IS NULL
BEGIN
  CREATE TABLE ttwSurrogateKey (
    TableName varchar(128) NOT NULL CONSTRAINT PK_ttwSurrogateKey PRIMARY KEY,
    LastKey int NOT NULL
  );
END
GO

IF NOT EXISTS (SELECT * FROM ttwSurrogateKey WHERE TableName = 'tciMemo')
  INSERT INTO ttwSurrogateKey (TableName, LastKey) VALUES ('tciMemo', 0);
GO

-- Administration: adding and deleting. A delete also removes the row's links, in one transaction; the delete of an entity
-- also removes its types and contexts. Memos are kept.
--
-- Procedures with a transaction use SET XACT_ABORT ON: without it an error would not end the transaction, and a caller that
-- times out would leave it open. A single statement needs neither, and its failure must not end the caller's
-- transaction.

IF OBJECT_ID('spTWCAddUser', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCAddUser AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCAddUser
  @UserID varchar(30)
AS
SET NOCOUNT ON
INSERT INTO ttwUser (UserID, IsActive) VALUES (RTRIM(@UserID), 1)
GO

IF OBJECT_ID('spTWCDeleteUser', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCDeleteUser AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCDeleteUser
  @UserKey int
AS
SET NOCOUNT ON
SET XACT_ABORT ON
BEGIN TRANSACTION
DELETE FROM ttwGroupMember WHERE UserKey = @UserKey
DELETE FROM ttwUser WHERE UserKey = @UserKey
COMMIT TRANSACTION
GO

IF OBJECT_ID('spTWCAddGroup', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCAddGroup AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCAddGroup
  @GroupID varchar(30)
AS
SET NOCOUNT ON
INSERT INTO ttwGroup (GroupID) VALUES (RTRIM(@GroupID))
GO

IF OBJECT_ID('spTWCDeleteGroup', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCDeleteGroup AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCDeleteGroup
  @GroupKey int
AS
SET NOCOUNT ON
SET XACT_ABORT ON
BEGIN TRANSACTION
DELETE FROM ttwGroupMember WHERE GroupKey = @GroupKey
DELETE FROM ttwRightAssignment WHERE GroupKey = @GroupKey
DELETE FROM ttwRemarkRight WHERE GroupKey = @GroupKey
DELETE FROM ttwGroup WHERE GroupKey = @GroupKey
COMMIT TRANSACTION
GO

IF OBJECT_ID('spTWCAddRight', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCAddRight AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCAddRight
  @RightID varchar(30)
AS
SET NOCOUNT ON
INSERT INTO ttwRight (RightID) VALUES (RTRIM(@RightID))
GO

IF OBJECT_ID('spTWCDeleteRight', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCDeleteRight AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCDeleteRight
  @RightKey int
AS
SET NOCOUNT ON
SET XACT_ABORT ON
BEGIN TRANSACTION
DELETE FROM ttwRightAssignment WHERE RightKey = @RightKey
DELETE FROM ttwRight WHERE RightKey = @RightKey
COMMIT TRANSACTION
GO

IF OBJECT_ID('spTWCAddRemarkEntity', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCAddRemarkEntity AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCAddRemarkEntity
  @RemarkEntityID varchar(30)
AS
SET NOCOUNT ON
INSERT INTO ttwRemarkEntity (RemarkEntityID) VALUES (RTRIM(@RemarkEntityID))
GO

IF OBJECT_ID('spTWCDeleteRemarkEntity', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCDeleteRemarkEntity AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCDeleteRemarkEntity
  @RemarkEntityKey int
AS
SET NOCOUNT ON
SET XACT_ABORT ON
BEGIN TRANSACTION
DELETE FROM ttwRemarkContext WHERE ContextKey IN
  (SELECT ContextKey FROM ttwContext WHERE RemarkEntityKey = @RemarkEntityKey)
DELETE FROM ttwRemarkContext WHERE RemarkTypeKey IN
  (SELECT RemarkTypeKey FROM ttwRemarkType WHERE RemarkEntityKey = @RemarkEntityKey)
DELETE FROM ttwRemarkRight WHERE RemarkTypeKey IN
  (SELECT RemarkTypeKey FROM ttwRemarkType WHERE RemarkEntityKey = @RemarkEntityKey)
DELETE FROM ttwContext WHERE RemarkEntityKey = @RemarkEntityKey
DELETE FROM ttwRemarkType WHERE RemarkEntityKey = @RemarkEntityKey
DELETE FROM ttwRemarkEntity WHERE RemarkEntityKey = @RemarkEntityKey
COMMIT TRANSACTION
GO

IF OBJECT_ID('spTWCAddRemarkType', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCAddRemarkType AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCAddRemarkType
  @RemarkTypeID varchar(30),
  @RemarkEntityKey int
AS
SET NOCOUNT ON
INSERT INTO ttwRemarkType (RemarkTypeID, RemarkEntityKey) VALUES (RTRIM(@RemarkTypeID), @RemarkEntityKey)
GO

-- The memos of the type are kept because they belong to the host; no context shows them any more.
IF OBJECT_ID('spTWCDeleteRemarkType', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCDeleteRemarkType AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCDeleteRemarkType
  @RemarkTypeKey int
AS
SET NOCOUNT ON
SET XACT_ABORT ON
BEGIN TRANSACTION
DELETE FROM ttwRemarkRight WHERE RemarkTypeKey = @RemarkTypeKey
DELETE FROM ttwRemarkContext WHERE RemarkTypeKey = @RemarkTypeKey
DELETE FROM ttwRemarkType WHERE RemarkTypeKey = @RemarkTypeKey
COMMIT TRANSACTION
GO

IF OBJECT_ID('spTWCAddContext', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCAddContext AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCAddContext
  @ContextID varchar(30),
  @RemarkEntityKey int
AS
SET NOCOUNT ON
INSERT INTO ttwContext (ContextID, RemarkEntityKey) VALUES (RTRIM(@ContextID), @RemarkEntityKey)
GO

IF OBJECT_ID('spTWCDeleteContext', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCDeleteContext AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCDeleteContext
  @ContextKey int
AS
SET NOCOUNT ON
SET XACT_ABORT ON
BEGIN TRANSACTION
DELETE FROM ttwRemarkContext WHERE ContextKey = @ContextKey
DELETE FROM ttwContext WHERE ContextKey = @ContextKey
COMMIT TRANSACTION
GO

-- Administration: adding and removing links. Flags and positions start at 0; the administration updates them.

IF OBJECT_ID('spTWCqvAddGroupMember', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCqvAddGroupMember AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCqvAddGroupMember
  @GroupKey int,
  @UserKey int
AS
SET NOCOUNT ON
INSERT INTO ttwGroupMember (GroupKey, UserKey) VALUES (@GroupKey, @UserKey)
GO

IF OBJECT_ID('spTWCqvRemoveGroupMember', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCqvRemoveGroupMember AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCqvRemoveGroupMember
  @GroupKey int,
  @UserKey int
AS
SET NOCOUNT ON
DELETE FROM ttwGroupMember WHERE GroupKey = @GroupKey AND UserKey = @UserKey
GO

IF OBJECT_ID('spTWCqvAddGroupRight', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCqvAddGroupRight AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCqvAddGroupRight
  @GroupKey int,
  @RightKey int
AS
SET NOCOUNT ON
INSERT INTO ttwRightAssignment (GroupKey, RightKey) VALUES (@GroupKey, @RightKey)
GO

IF OBJECT_ID('spTWCqvRemoveGroupRight', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCqvRemoveGroupRight AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCqvRemoveGroupRight
  @GroupKey int,
  @RightKey int
AS
SET NOCOUNT ON
DELETE FROM ttwRightAssignment WHERE GroupKey = @GroupKey AND RightKey = @RightKey
GO

IF OBJECT_ID('spTWCqvAddRemarkRight', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCqvAddRemarkRight AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCqvAddRemarkRight
  @GroupKey int,
  @RemarkTypeKey int
AS
SET NOCOUNT ON
INSERT INTO ttwRemarkRight (GroupKey, RemarkTypeKey) VALUES (@GroupKey, @RemarkTypeKey)
GO

IF OBJECT_ID('spTWCqvRemoveRemarkRight', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCqvRemoveRemarkRight AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCqvRemoveRemarkRight
  @GroupKey int,
  @RemarkTypeKey int
AS
SET NOCOUNT ON
DELETE FROM ttwRemarkRight WHERE GroupKey = @GroupKey AND RemarkTypeKey = @RemarkTypeKey
GO

IF OBJECT_ID('spTWCqvAddRemarkContext', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCqvAddRemarkContext AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCqvAddRemarkContext
  @ContextKey int,
  @RemarkTypeKey int
AS
SET NOCOUNT ON
INSERT INTO ttwRemarkContext (ContextKey, RemarkTypeKey) VALUES (@ContextKey, @RemarkTypeKey)
GO

IF OBJECT_ID('spTWCqvRemoveRemarkContext', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCqvRemoveRemarkContext AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCqvRemoveRemarkContext
  @ContextKey int,
  @RemarkTypeKey int
AS
SET NOCOUNT ON
DELETE FROM ttwRemarkContext WHERE ContextKey = @ContextKey AND RemarkTypeKey = @RemarkTypeKey
GO

-- Runtime: reading.

IF OBJECT_ID('spTWCqvGetContext', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCqvGetContext AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCqvGetContext
  @ContextID varchar(30)
AS
SET NOCOUNT ON
SELECT c.Caption, e.AcuityEntityKey AS EntityKey, e.Caption AS EntityName, e.spGetOwnerName,
  c.GroupByType, c.AllowRowSizing, c.RowHeight, c.EditBehavior
FROM ttwContext c
INNER JOIN ttwRemarkEntity e ON e.RemarkEntityKey = c.RemarkEntityKey
WHERE c.ContextID = RTRIM(@ContextID)
GO

IF OBJECT_ID('spTWCqvGetRemarkTypes', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCqvGetRemarkTypes AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCqvGetRemarkTypes
  @ContextID varchar(30)
AS
SET NOCOUNT ON
SELECT t.RemarkTypeID AS TypeID, t.Caption, rc.Priority
FROM ttwContext c
INNER JOIN ttwRemarkContext rc ON rc.ContextKey = c.ContextKey
INNER JOIN ttwRemarkType t ON t.RemarkTypeKey = rc.RemarkTypeKey
WHERE c.ContextID = RTRIM(@ContextID)
ORDER BY rc.DisplaySeq, t.RemarkTypeKey
GO

IF OBJECT_ID('spTWCqvGetUserRights', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCqvGetUserRights AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCqvGetUserRights
  @UserID varchar(30)
AS
SET NOCOUNT ON
SELECT t.RemarkTypeID AS TypeID, MAX(r.CanCreate) AS CanCreate, MAX(r.CanRead) AS CanRead,
  MAX(r.CanUpdate) AS CanUpdate, MAX(r.CanDelete) AS CanDelete
FROM ttwUser u
INNER JOIN ttwGroupMember gm ON gm.UserKey = u.UserKey
INNER JOIN ttwRemarkRight r ON r.GroupKey = gm.GroupKey
INNER JOIN ttwRemarkType t ON t.RemarkTypeKey = r.RemarkTypeKey
WHERE u.UserID = RTRIM(@UserID)
GROUP BY t.RemarkTypeID
GO

-- The pop-up viewer counts from the start of the list, so memos of pop-up types come first, and then the newest. Any
-- Priority but 0 makes a type pop up.
IF OBJECT_ID('spTWCqvGetFilteredMemos', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCqvGetFilteredMemos AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCqvGetFilteredMemos
  @ContextID varchar(30),
  @EntityType smallint,
  @OwnerKey int
AS
SET NOCOUNT ON
SELECT t.RemarkTypeID AS TypeID, m.MemoKey, m.DateStamp, m.UserID, m.MemoText
FROM ttwContext c
INNER JOIN ttwRemarkContext rc ON rc.ContextKey = c.ContextKey
INNER JOIN ttwRemarkType t ON t.RemarkTypeKey = rc.RemarkTypeKey
INNER JOIN tciMemo m ON m.MemoType = t.RemarkTypeID
WHERE c.ContextID = RTRIM(@ContextID) AND m.EntityType = @EntityType AND m.OwnerKey = @OwnerKey
ORDER BY CASE WHEN rc.Priority = 0 THEN 1 ELSE 0 END, m.DateStamp DESC, m.MemoKey DESC
GO

-- Runtime: writing. The date stamp is the server's time.

IF OBJECT_ID('spTWCqvAddRemark', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCqvAddRemark AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCqvAddRemark
  @MemoKey int,
  @MemoType varchar(30),
  @EntityType smallint,
  @OwnerKey int,
  @MemoText nvarchar(max),
  @UserID varchar(30)
AS
SET NOCOUNT ON
INSERT INTO tciMemo (MemoKey, MemoType, EntityType, OwnerKey, DateStamp, UserID, MemoText)
VALUES (@MemoKey, RTRIM(@MemoType), @EntityType, @OwnerKey, GETDATE(), RTRIM(@UserID), @MemoText)
GO

-- Another user may have deleted the memo, or its insert may have failed; then it is inserted, because the user's text must
-- not be lost. The hints lock the key, so that of several writers one inserts and the others update. When a memo of
-- another owner has the key, the insert violates the primary key and nothing changes.
IF OBJECT_ID('spTWCqvUpdateRemark', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCqvUpdateRemark AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCqvUpdateRemark
  @MemoKey int,
  @MemoType varchar(30),
  @EntityType smallint,
  @OwnerKey int,
  @MemoText nvarchar(max),
  @UserID varchar(30)
AS
SET NOCOUNT ON
SET XACT_ABORT ON
BEGIN TRANSACTION
UPDATE tciMemo WITH (UPDLOCK, HOLDLOCK)
SET MemoType = RTRIM(@MemoType), DateStamp = GETDATE(), UserID = RTRIM(@UserID), MemoText = @MemoText
WHERE MemoKey = @MemoKey AND EntityType = @EntityType AND OwnerKey = @OwnerKey
IF @@ROWCOUNT = 0
  INSERT INTO tciMemo (MemoKey, MemoType, EntityType, OwnerKey, DateStamp, UserID, MemoText)
  VALUES (@MemoKey, RTRIM(@MemoType), @EntityType, @OwnerKey, GETDATE(), RTRIM(@UserID), @MemoText)
COMMIT TRANSACTION
GO

IF OBJECT_ID('spTWCqvDeleteRemark', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spTWCqvDeleteRemark AS SELECT 1 AS Nothing')
GO
ALTER PROCEDURE spTWCqvDeleteRemark
  @MemoKey int
AS
SET NOCOUNT ON
DELETE FROM tciMemo WHERE MemoKey = @MemoKey
GO

-- A host's own procedure of this name is kept. In this one the update comes first: it locks the counter until the
-- transaction ends (the caller's, if there is one), so the next caller waits and no key is returned twice. The
-- isolation level is READ COMMITTED because a caller that waited under SNAPSHOT would fail with an update conflict;
-- the server restores the caller's level on return. An unknown table is refused before the transaction begins, so that
-- no rollback here ends a transaction of the caller. The host may have written memos with keys of its own, and those
-- are skipped. They are read without waiting for uncommitted writers, and only once: a second read may see fewer, and
-- the counter must not go back.
IF OBJECT_ID('spGetNextSurrogateKey', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spGetNextSurrogateKey
  @iTableName varchar(128),
  @oNewKey int OUTPUT
AS
SET NOCOUNT ON
SET XACT_ABORT ON
SET TRANSACTION ISOLATION LEVEL READ COMMITTED
DECLARE @message nvarchar(200)
DECLARE @highest int
IF NOT EXISTS (SELECT * FROM ttwSurrogateKey WHERE TableName = @iTableName)
BEGIN
  SET @message = N''There is no counter in ttwSurrogateKey for the table '' + @iTableName
  RAISERROR (@message, 16, 1)
  RETURN
END
BEGIN TRANSACTION
UPDATE ttwSurrogateKey SET LastKey = LastKey + 1 WHERE TableName = @iTableName
IF @iTableName = ''tciMemo''
BEGIN
  SELECT @highest = MAX(MemoKey) FROM tciMemo WITH (NOLOCK)
  UPDATE ttwSurrogateKey SET LastKey = @highest + 1 WHERE TableName = @iTableName AND LastKey <= @highest
END
SELECT @oNewKey = LastKey FROM ttwSurrogateKey WHERE TableName = @iTableName
COMMIT TRANSACTION')
GO

-- The version of this layout, after all of it is made. `quorvel init` of an older version leaves the database of a newer
-- one alone.
IF OBJECT_ID('ttwLayout', 'U') IS NULL
BEGIN
  CREATE TABLE ttwLayout (
    LayoutVersion int NOT NULL CONSTRAINT PK_ttwLayout PRIMARY KEY
  );
END
GO

IF NOT EXISTS (SELECT * FROM ttwLayout WHERE LayoutVersion = 1)
  INSERT INTO ttwLayout (LayoutVersion) VALUES (1)
GO
