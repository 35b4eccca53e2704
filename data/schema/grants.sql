-- The database role QuorvelUser: exactly the permissions that the component's login needs.
--
-- For a SQL Server; the embedded engine has no users. Run it after quorvel.sql, as a user who may create roles and grant
-- on these objects, usually a member of db_owner. A second run changes nothing.
--
-- The role gets no permission on tciMemo and ttwSurrogateKey: the procedures use them on its behalf, provided that
-- procedures and tables have the same owner. Make the component's login a user of the database and a member of the role:
--
--   CREATE USER app FOR LOGIN app
--   ALTER ROLE QuorvelUser ADD MEMBER app

IF NOT EXISTS (SELECT * FROM sys.database_principals WHERE name = 'QuorvelUser' AND type = 'R')
  CREATE ROLE QuorvelUser
GO

-- Inserts, deletes, links and all access to remarks go through procedures.
GRANT EXECUTE ON spTWCqvGetContext TO QuorvelUser
GRANT EXECUTE ON spTWCqvGetRemarkTypes TO QuorvelUser
GRANT EXECUTE ON spTWCqvGetUserRights TO QuorvelUser
GRANT EXECUTE ON spTWCqvGetFilteredMemos TO QuorvelUser
GRANT EXECUTE ON spTWCqvAddRemark TO QuorvelUser
GRANT EXECUTE ON spTWCqvUpdateRemark TO QuorvelUser
GRANT EXECUTE ON spTWCqvDeleteRemark TO QuorvelUser
GRANT EXECUTE ON spGetNextSurrogateKey TO QuorvelUser
GRANT EXECUTE ON spTWCAddUser TO QuorvelUser
GRANT EXECUTE ON spTWCDeleteUser TO QuorvelUser
GRANT EXECUTE ON spTWCAddGroup TO QuorvelUser
GRANT EXECUTE ON spTWCDeleteGroup TO QuorvelUser
GRANT EXECUTE ON spTWCAddRight TO QuorvelUser
GRANT EXECUTE ON spTWCDeleteRight TO QuorvelUser
GRANT EXECUTE ON spTWCAddRemarkEntity TO QuorvelUser
GRANT EXECUTE ON spTWCDeleteRemarkEntity TO QuorvelUser
GRANT EXECUTE ON spTWCAddRemarkType TO QuorvelUser
GRANT EXECUTE ON spTWCDeleteRemarkType TO QuorvelUser
GRANT EXECUTE ON spTWCAddContext TO QuorvelUser
GRANT EXECUTE ON spTWCDeleteContext TO QuorvelUser
GRANT EXECUTE ON spTWCqvAddGroupMember TO QuorvelUser
GRANT EXECUTE ON spTWCqvRemoveGroupMember TO QuorvelUser
GRANT EXECUTE ON spTWCqvAddGroupRight TO QuorvelUser
GRANT EXECUTE ON spTWCqvRemoveGroupRight TO QuorvelUser
GRANT EXECUTE ON spTWCqvAddRemarkRight TO QuorvelUser
GRANT EXECUTE ON spTWCqvRemoveRemarkRight TO QuorvelUser
GRANT EXECUTE ON spTWCqvAddRemarkContext TO QuorvelUser
GRANT EXECUTE ON spTWCqvRemoveRemarkContext TO QuorvelUser
GO

-- The administration lists these tables and updates some of their columns directly.
GRANT SELECT ON ttwUser TO QuorvelUser
GRANT SELECT ON ttwGroup TO QuorvelUser
GRANT SELECT ON ttwGroupMember TO QuorvelUser
GRANT SELECT ON ttwRight TO QuorvelUser
GRANT SELECT ON ttwRightAssignment TO QuorvelUser
GRANT SELECT ON ttwRemarkEntity TO QuorvelUser
GRANT SELECT ON ttwRemarkType TO QuorvelUser
GRANT SELECT ON ttwRemarkRight TO QuorvelUser
GRANT SELECT ON ttwContext TO QuorvelUser
GRANT SELECT ON ttwRemarkContext TO QuorvelUser
GRANT SELECT ON ttwBranch TO QuorvelUser
GO

-- `quorvel doctor` compares the layout's version with its own.
GRANT SELECT ON ttwLayout TO QuorvelUser
GO

GRANT UPDATE ON ttwUser (FirstName, LastName, BranchID, IsActive) TO QuorvelUser
GRANT UPDATE ON ttwGroup (Caption, Comments) TO QuorvelUser
GRANT UPDATE ON ttwRight (Caption, Comments) TO QuorvelUser
GRANT UPDATE ON ttwRemarkType (Caption, Comments) TO QuorvelUser
GRANT UPDATE ON ttwRemarkEntity (Caption, Comments, spGetOwnerName, AcuityEntityKey) TO QuorvelUser
GRANT UPDATE ON ttwContext (Caption, Comments, RowHeight, AllowRowSizing, GroupByType, EditBehavior) TO QuorvelUser
GRANT UPDATE ON ttwRemarkRight (CanCreate, CanRead, CanUpdate, CanDelete) TO QuorvelUser
GRANT UPDATE ON ttwRemarkContext (DisplaySeq, Priority) TO QuorvelUser
GO

-- The owner lookup of each entity needs a grant too. The statements are listed and not run, because users of the
-- administration can change the names: an administrator should read the list first.
SELECT N'GRANT EXECUTE ON ' + spGetOwnerName + N' TO QuorvelUser' AS OwnerLookups
FROM ttwRemarkEntity
WHERE spGetOwnerName <> N''
ORDER BY RemarkEntityKey
GO
