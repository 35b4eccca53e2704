-- The broken database that Errors.vbs uses.
INSERT INTO ttwRemarkEntity (RemarkEntityID, Caption, spGetOwnerName, AcuityEntityKey)
VALUES ('Broken', N'Broken', N'spNowhere', 999)
INSERT INTO ttwContext (ContextID, Caption, RemarkEntityKey, GroupByType, RowHeight, AllowRowSizing, EditBehavior)
SELECT 'Broken', N'Broken', RemarkEntityKey, 0, 1, 0, 0 FROM ttwRemarkEntity WHERE RemarkEntityID = 'Broken'
GO
DROP PROCEDURE spTWCqvDeleteRemark
GO
