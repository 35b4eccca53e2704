-- Sample data for Quorvel: a small wholesaler's customers and orders with its clerks' remarks, and the users, groups,
-- rights and contexts that show them. All names are fictitious.
--
-- T-SQL like quorvel.sql, which must run first. For a trial database and not for a host's own, because it creates the
-- tables Customer and SalesOrder. Existing tables and procedures with these names are not changed. The rows are inserted
-- in one transaction, and only when there are no customers yet.

SET ANSI_NULLS ON
GO
SET QUOTED_IDENTIFIER ON
GO

-- The host's tables, and the procedures that look up the owners of remarks.

IF OBJECT_ID('Customer', 'U') IS NULL
BEGIN
  CREATE TABLE Customer (
    CustKey int NOT NULL CONSTRAINT PK_Customer PRIMARY KEY,
    CustID varchar(30) NOT NULL CONSTRAINT UQ_Customer_CustID UNIQUE,
    CustName nvarchar(100) NOT NULL
  );
END
GO

IF OBJECT_ID('SalesOrder', 'U') IS NULL
BEGIN
  CREATE TABLE SalesOrder (
    OrderKey int NOT NULL CONSTRAINT PK_SalesOrder PRIMARY KEY,
    OrderID varchar(30) NOT NULL CONSTRAINT UQ_SalesOrder_OrderID UNIQUE,
    CustKey int NOT NULL CONSTRAINT FK_SalesOrder_Customer REFERENCES Customer (CustKey),
    OrderDate datetime NOT NULL
  );
  CREATE INDEX IX_SalesOrder_Customer ON SalesOrder (CustKey);
END
GO

IF OBJECT_ID('spGetCustomerName', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spGetCustomerName
  @OwnerID varchar(30)
AS
SET NOCOUNT ON
SELECT CustKey AS OwnerKey, CustName AS OwnerName FROM Customer WHERE CustID = RTRIM(@OwnerID)')
GO

-- The owner name of an order is its customer's name.
IF OBJECT_ID('spGetOrderName', 'P') IS NULL
  EXEC ('CREATE PROCEDURE spGetOrderName
  @OwnerID varchar(30)
AS
SET NOCOUNT ON
SELECT o.OrderKey AS OwnerKey, c.CustName AS OwnerName
FROM SalesOrder o
INNER JOIN Customer c ON c.CustKey = o.CustKey
WHERE o.OrderID = RTRIM(@OwnerID)')
GO

IF EXISTS (SELECT * FROM Customer) RETURN

SET NOCOUNT ON
SET XACT_ABORT ON

BEGIN TRANSACTION

-- The remarks take this key and the ones after it. The counter stays locked until the end of the transaction.
DECLARE @firstMemo int
EXEC spGetNextSurrogateKey @iTableName = 'tciMemo', @oNewKey = @firstMemo OUTPUT

INSERT INTO Customer (CustKey, CustID, CustName) VALUES
  (1, 'C1000', N'Alder Creek Hardware'),
  (2, 'C1001', N'Bayside Marine Supply'),
  (3, 'C1002', N'Copperline Electric'),
  (4, 'C1003', N'Dunmore Building Centre'),
  (5, 'C1004', N'Eastgate Farm & Feed'),
  (6, 'C1005', N'Fairholm Plumbing'),
  (7, 'C1006', N'Granite State Fasteners'),
  (8, 'C1007', N'Harrow & Pell Industrial'),
  (9, 'C1008', N'Ironbridge Fabrication'),
  (10, 'C1009', N'Juniper Lane Interiors'),
  (11, 'C1010', N'Kestrel Roofing'),
  (12, 'C1011', N'Larkspur Garden Centre'),
  (13, 'C1012', N'Millrace Paper Goods'),
  (14, 'C1013', N'Northfield Dairy Equipment'),
  (15, 'C1014', N'Oakhurst Cabinetry'),
  (16, 'C1015', N'Pinecrest Motor Works'),
  (17, 'C1016', N'Quarry Road Stone'),
  (18, 'C1017', N'Redfern Glass'),
  (19, 'C1018', N'Saltmarsh Boatyard'),
  (20, 'C1019', N'Thornbury Heating'),
  (21, 'C1020', N'Union Street Bakery Supply'),
  (22, 'C1021', N'Vale Agricultural'),
  (23, 'C1022', N'Westbrook Scaffolding'),
  (24, 'C1023', N'Yardley Paint & Varnish'),
  (25, 'C1024', N'Zephyr Ventilation'),
  (26, 'C1025', N'Ashgrove Contractors'),
  (27, 'C1026', N'Beacon Hill Lighting'),
  (28, 'C1027', N'Cedar Falls Lumber'),
  (29, 'C1028', N'Drayton Machine Shop'),
  (30, 'C1029', N'Elmwood School District'),
  (31, 'C1030', N'Foundry Lane Castings'),
  (32, 'C1031', N'Glenmoor Golf Club'),
  (33, 'C1032', N'Hillcrest Veterinary'),
  (34, 'C1033', N'Inverloch Trading'),
  (35, 'C1034', N'Jasper County Co-op'),
  (36, 'C1035', N'Kingsway Tool Hire'),
  (37, 'C1036', N'Lockwood Security'),
  (38, 'C1037', N'Marlow Brothers'),
  (39, 'C1038', N'Nettlecombe Nurseries'),
  (40, 'C1039', N'O''Brien & Daughters'),
  (41, 'C1040', N'Pemberton Steel'),
  (42, 'C1041', N'Quayside Chandlery'),
  (43, 'C1042', N'Ridgeway Excavating'),
  (44, 'C1043', N'Søndergaard Møbler'),
  (45, 'C1044', N'Acme Tools'),
  (46, 'C1045', N'Tideway Fisheries'),
  (47, 'C1046', N'Upland Sawmill'),
  (48, 'C1047', N'Vintner''s Yard'),
  (49, 'C1048', N'Wexcombe Ironmongers'),
  (50, 'C1049', N'Yellow Door Rentals')

INSERT INTO SalesOrder (OrderKey, OrderID, CustKey, OrderDate) VALUES
  (1, 'SO20001', 45, '20240108'),
  (2, 'SO20002', 45, '20240226'),
  (3, 'SO20003', 1, '20240111'),
  (4, 'SO20004', 3, '20240115'),
  (5, 'SO20005', 6, '20240119'),
  (6, 'SO20006', 8, '20240123'),
  (7, 'SO20007', 8, '20240212'),
  (8, 'SO20008', 11, '20240131'),
  (9, 'SO20009', 13, '20240202'),
  (10, 'SO20010', 16, '20240206'),
  (11, 'SO20011', 19, '20240209'),
  (12, 'SO20012', 23, '20240214'),
  (13, 'SO20013', 27, '20240216'),
  (14, 'SO20014', 28, '20240220'),
  (15, 'SO20015', 30, '20240222'),
  (16, 'SO20016', 36, '20240227'),
  (17, 'SO20017', 40, '20240301'),
  (18, 'SO20018', 41, '20240305'),
  (19, 'SO20019', 44, '20240307'),
  (20, 'SO20020', 50, '20240311')

INSERT INTO ttwBranch (BranchID, BranchName, WhseKey, ShipMethKey, SalesTerritoryKey, SalesAcctKey) VALUES
  ('NORTH', N'North Branch', 1, 1, 1, 4010),
  ('SOUTH', N'South Branch', 2, 1, 2, 4020)

INSERT INTO ttwUser (UserID, LastName, FirstName, BranchID, IsActive) VALUES
  ('jsmith', N'Smith', N'Jane', 'NORTH', 1),
  ('mjones', N'Jones', N'Martin', 'SOUTH', 1),
  ('admin', N'Weller', N'Anna', 'NORTH', 1),
  ('guest', N'', N'', '', 1)

INSERT INTO ttwGroup (GroupID, Caption, Comments) VALUES
  ('Collections', N'Collections', N'Accounts receivable clerks'),
  ('Sales', N'Sales', N'Inside and field sales'),
  ('Admin', N'Administrators', N'May do everything')

UPDATE ttwGroup SET Comments = N'What every user may do' WHERE GroupID = 'Default' AND Comments = N''

INSERT INTO ttwGroupMember (GroupKey, UserKey)
SELECT g.GroupKey, u.UserKey
FROM (
  SELECT 'Default' AS GroupID, 'jsmith' AS UserID
  UNION ALL SELECT 'Collections', 'jsmith'
  UNION ALL SELECT 'Default', 'mjones'
  UNION ALL SELECT 'Sales', 'mjones'
  UNION ALL SELECT 'Default', 'admin'
  UNION ALL SELECT 'Admin', 'admin'
) m
INNER JOIN ttwGroup g ON g.GroupID = m.GroupID
INNER JOIN ttwUser u ON u.UserID = m.UserID

INSERT INTO ttwRight (RightID, Caption, Comments) VALUES
  ('CreditHold.Release', N'Release credit holds', N'Takes a customer off credit hold'),
  ('CreditLimit.Change', N'Change credit limits', N'Any limit, up or down'),
  ('Invoice.WriteOff', N'Write off invoices', N'Small balances that will not be paid'),
  ('Order.Delete', N'Delete orders', N'Only orders that have not shipped'),
  ('Order.Enter', N'Enter orders', N'New orders, and changes to open ones'),
  ('Price.Override', N'Override prices', N'Sells below the price list')

INSERT INTO ttwRightAssignment (GroupKey, RightKey)
SELECT g.GroupKey, r.RightKey
FROM (
  SELECT 'Default' AS GroupID, 'Order.Enter' AS RightID
  UNION ALL SELECT 'Collections', 'CreditHold.Release'
  UNION ALL SELECT 'Collections', 'Invoice.WriteOff'
  UNION ALL SELECT 'Sales', 'Order.Enter'
  UNION ALL SELECT 'Sales', 'Price.Override'
  UNION ALL SELECT 'Admin', RightID FROM ttwRight
) a
INNER JOIN ttwGroup g ON g.GroupID = a.GroupID
INNER JOIN ttwRight r ON r.RightID = a.RightID

INSERT INTO ttwRemarkEntity (RemarkEntityID, Caption, spGetOwnerName, AcuityEntityKey, Comments) VALUES
  ('Customer', N'Customer', N'spGetCustomerName', 501, N'Rows of the table Customer'),
  ('Order', N'Sales Order', N'spGetOrderName', 801, N'Rows of the table SalesOrder')

DECLARE @customer int
DECLARE @order int
SELECT @customer = RemarkEntityKey FROM ttwRemarkEntity WHERE RemarkEntityID = 'Customer'
SELECT @order = RemarkEntityKey FROM ttwRemarkEntity WHERE RemarkEntityID = 'Order'

INSERT INTO ttwRemarkType (RemarkTypeID, Caption, RemarkEntityKey, Comments) VALUES
  ('Cust.AR.Coll', N'Collections', @customer, N'Overdue invoices and promises to pay'),
  ('Cust.Credit', N'Credit', @customer, N'Credit limits and holds'),
  ('Cust.General', N'General', @customer, N'Everything else about a customer'),
  ('Cust.Internal', N'Internal', @customer, N'Not for the customer to hear'),
  ('Ord.Ship', N'Shipping', @order, N'Carriers, docks and delivery windows'),
  ('Ord.Note', N'Order Note', @order, N'Everything else about an order')

INSERT INTO ttwContext
  (ContextID, Caption, RemarkEntityKey, Comments, GroupByType, RowHeight, AllowRowSizing, EditBehavior)
VALUES
  ('CustMaint', N'Customer Maintenance', @customer, N'Where customers are changed', 1, 2, 1, 2),
  ('CustInq', N'Customer Inquiry', @customer, N'Only for looking, never saves', 0, 1, 0, 1),
  ('OrderEntry', N'Order Entry', @order, N'Where orders are entered', 1, 2, 1, 0)

INSERT INTO ttwRemarkContext (ContextKey, RemarkTypeKey, DisplaySeq, Priority)
SELECT c.ContextKey, t.RemarkTypeKey, l.DisplaySeq, l.Priority
FROM (
  SELECT 'CustMaint' AS ContextID, 'Cust.AR.Coll' AS RemarkTypeID, 0 AS DisplaySeq, 1 AS Priority
  UNION ALL SELECT 'CustMaint', 'Cust.Credit', 1, 1
  UNION ALL SELECT 'CustMaint', 'Cust.General', 2, 0
  UNION ALL SELECT 'CustMaint', 'Cust.Internal', 3, 0
  UNION ALL SELECT 'CustInq', 'Cust.AR.Coll', 0, 1
  UNION ALL SELECT 'CustInq', 'Cust.General', 1, 0
  UNION ALL SELECT 'OrderEntry', 'Ord.Ship', 0, 1
  UNION ALL SELECT 'OrderEntry', 'Ord.Note', 1, 0
) l
INNER JOIN ttwContext c ON c.ContextID = l.ContextID
INNER JOIN ttwRemarkType t ON t.RemarkTypeID = l.RemarkTypeID

INSERT INTO ttwRemarkRight (GroupKey, RemarkTypeKey, CanCreate, CanRead, CanUpdate, CanDelete)
SELECT g.GroupKey, t.RemarkTypeKey, r.CanCreate, r.CanRead, r.CanUpdate, r.CanDelete
FROM (
  SELECT 'Default' AS GroupID, 'Cust.General' AS RemarkTypeID,
    1 AS CanCreate, 1 AS CanRead, 0 AS CanUpdate, 0 AS CanDelete
  UNION ALL SELECT 'Default', 'Ord.Note', 1, 1, 1, 0
  UNION ALL SELECT 'Collections', 'Cust.AR.Coll', 1, 1, 1, 1
  UNION ALL SELECT 'Collections', 'Cust.Credit', 0, 1, 0, 0
  UNION ALL SELECT 'Sales', 'Cust.Credit', 1, 1, 1, 0
  UNION ALL SELECT 'Sales', 'Ord.Ship', 1, 1, 1, 1
  UNION ALL SELECT 'Admin', RemarkTypeID, 1, 1, 1, 1 FROM ttwRemarkType WHERE RemarkEntityKey IN (@customer, @order)
) r
INNER JOIN ttwGroup g ON g.GroupID = r.GroupID
INNER JOIN ttwRemarkType t ON t.RemarkTypeID = r.RemarkTypeID

-- Remarks of customers. Acme Tools (45) has two of Collections, one of Credit, three of General and one of Internal.
INSERT INTO tciMemo (MemoKey, MemoType, EntityType, OwnerKey, DateStamp, UserID, MemoText) VALUES
  (@firstMemo, 'Cust.General', 501, 45, '20230612 09:20:00', 'mjones',
    N'Receiving closes at 3 pm. Call the dock, not the front desk, for delivery appointments.'),
  (@firstMemo + 1, 'Cust.General', 501, 45, '20231103 14:05:00', 'jsmith',
    N'New accounts payable contact: Dana Whitlock, ext. 214. Invoices by e-mail only.'),
  (@firstMemo + 2, 'Cust.Credit', 501, 45, '20231218 11:40:00', 'admin',
    N'Credit limit raised from 15,000 to 25,000 after the year-end review. Review again in June.'),
  (@firstMemo + 3, 'Cust.AR.Coll', 501, 45, '20240213 10:15:00', 'jsmith',
    N'Invoice 48817 is 45 days past due. Dana says it was never approved; sent the signed packing slip again.'),
  (@firstMemo + 4, 'Cust.Internal', 501, 45, '20240215 16:50:00', 'admin',
    N'Owner is talking to a competitor about the hand tool line. Do not quote below list without asking sales.'),
  (@firstMemo + 5, 'Cust.General', 501, 45, '20240304 08:45:00', 'mjones',
    N'Wants the spring catalogue as soon as it is out: two printed copies, one for each counter.'),
  (@firstMemo + 6, 'Cust.AR.Coll', 501, 45, '20240311 13:30:00', 'jsmith',
    N'Dana promised payment of 48817 and 48902 by Friday. Call Monday morning if nothing has posted.'),
  (@firstMemo + 7, 'Cust.General', 501, 1, '20230905 10:00:00', 'mjones',
    N'Closed on Wednesday afternoons.'),
  (@firstMemo + 8, 'Cust.AR.Coll', 501, 2, '20240122 09:10:00', 'jsmith',
    N'Disputes freight on invoice 48630. Asked the branch for the delivery receipt.'),
  (@firstMemo + 9, 'Cust.AR.Coll', 501, 2, '20240129 15:25:00', 'jsmith',
    N'Delivery receipt sent. They accept the freight and will pay with the next run.'),
  (@firstMemo + 10, 'Cust.Credit', 501, 3, '20231009 11:00:00', 'admin',
    N'Bank reference received, limit stays at 40,000.'),
  (@firstMemo + 11, 'Cust.General', 501, 3, '20240118 08:30:00', 'mjones',
    N'All orders need a job number. Ask for it; they refuse invoices without one.'),
  (@firstMemo + 12, 'Cust.AR.Coll', 501, 5, '20240205 10:40:00', 'jsmith',
    N'Left a message for Mr. Hollis, second this week.'),
  (@firstMemo + 13, 'Cust.AR.Coll', 501, 5, '20240208 10:35:00', 'jsmith',
    N'Mr. Hollis is away until the 19th; his partner cannot sign checks. Diary for the 20th.'),
  (@firstMemo + 14, 'Cust.AR.Coll', 501, 5, '20240220 09:05:00', 'jsmith',
    N'Check for 2,310.55 in the mail as of today, he says.'),
  (@firstMemo + 15, 'Cust.Credit', 501, 5, '20240221 12:00:00', 'admin',
    N'On credit hold until the February balance has cleared. Cash orders are fine.'),
  (@firstMemo + 16, 'Cust.General', 501, 6, '20231127 13:15:00', 'mjones',
    N'Moved to 88 Fairholm Road. Old address is still on some of their own forms, ignore it.'),
  (@firstMemo + 17, 'Cust.Internal', 501, 9, '20240110 17:05:00', 'admin',
    N'Their buyer is related to our branch manager. Prices go through head office.'),
  (@firstMemo + 18, 'Cust.General', 501, 10, '20230718 09:50:00', 'jsmith',
    N'Tax exempt certificate on file, expires 31 December 2025.'),
  (@firstMemo + 19, 'Cust.Credit', 501, 14, '20240301 10:20:00', 'mjones',
    N'Asked for 60 day terms. Told them 45 from April if the January invoices are paid by then.'),
  (@firstMemo + 20, 'Cust.General', 501, 17, '20231204 14:30:00', 'mjones',
    N'Quarry gate needs a hard hat and a call ahead: drivers are turned away without.'),
  (@firstMemo + 21, 'Cust.AR.Coll', 501, 21, '20240116 11:45:00', 'jsmith',
    N'Short paid invoice 48577 by 120.00 for a damaged mixer bowl. Credit memo requested.'),
  (@firstMemo + 22, 'Cust.AR.Coll', 501, 21, '20240123 16:10:00', 'jsmith',
    N'Credit memo 9021 issued, account is clear.'),
  (@firstMemo + 23, 'Cust.General', 501, 30, '20230822 08:15:00', 'admin',
    N'Purchase orders only. No school staff member may order by telephone.'),
  (@firstMemo + 24, 'Cust.AR.Coll', 501, 33, '20240227 15:00:00', 'jsmith',
    N'Statement returned by the post office. Dr. Pruitt gave a box number, updated.'),
  (@firstMemo + 25, 'Cust.General', 501, 40, '20240109 10:55:00', 'mjones',
    N'Ask for Maeve O''Brien herself; she decides, and she prefers a call to an e-mail.'),
  (@firstMemo + 26, 'Cust.Credit', 501, 41, '20231115 09:35:00', 'admin',
    N'Parent company guarantees up to 100,000. Letter is in the contract folder.'),
  (@firstMemo + 27, 'Cust.General', 501, 44, '20240207 12:25:00', 'mjones',
    N'Ask for Ms. Sørensen at the København office, mornings only. Pays in €, net 30.'),
  (@firstMemo + 28, 'Cust.Internal', 501, 48, '20240214 16:20:00', 'jsmith',
    N'Third change of ownership in two years. Watch the balance.'),
  (@firstMemo + 29, 'Cust.AR.Coll', 501, 50, '20240312 11:10:00', 'jsmith',
    N'Broken promise, was to pay on the 8th. Next step is the letter.')

-- Remarks of orders.
INSERT INTO tciMemo (MemoKey, MemoType, EntityType, OwnerKey, DateStamp, UserID, MemoText) VALUES
  (@firstMemo + 30, 'Ord.Note', 801, 1, '20240108 15:40:00', 'mjones',
    N'Customer will take the 18 volt drills in place of the 14.4 if those are short.'),
  (@firstMemo + 31, 'Ord.Ship', 801, 1, '20240110 09:00:00', 'mjones',
    N'Lift gate needed, no fork lift on Thursdays.'),
  (@firstMemo + 32, 'Ord.Ship', 801, 2, '20240226 13:20:00', 'mjones',
    N'Ship complete. Do not send the back order separately.'),
  (@firstMemo + 33, 'Ord.Note', 801, 3, '20240111 10:30:00', 'jsmith',
    N'Price match approved on the galvanised hinges, see quote 3317.'),
  (@firstMemo + 34, 'Ord.Ship', 801, 5, '20240119 16:00:00', 'mjones',
    N'Will call: their van comes Friday before noon.'),
  (@firstMemo + 35, 'Ord.Note', 801, 6, '20240124 08:50:00', 'admin',
    N'Blanket order, release 2 of 6.'),
  (@firstMemo + 36, 'Ord.Note', 801, 7, '20240212 14:45:00', 'admin',
    N'Blanket order, release 3 of 6. Quantity up by half.'),
  (@firstMemo + 37, 'Ord.Ship', 801, 8, '20240201 11:15:00', 'mjones',
    N'Deliver to the site on Mill Street, crane until 2 pm.'),
  (@firstMemo + 38, 'Ord.Note', 801, 12, '20240215 09:25:00', 'jsmith',
    N'Deposit of 1,500.00 received, receipt 7742.'),
  (@firstMemo + 39, 'Ord.Ship', 801, 15, '20240223 10:05:00', 'mjones',
    N'School is closed from the 25th to the 29th.'),
  (@firstMemo + 40, 'Ord.Note', 801, 19, '20240307 13:50:00', 'mjones',
    N'Confirmation goes to København as well as to the warehouse.'),
  (@firstMemo + 41, 'Ord.Ship', 801, 20, '20240312 08:40:00', 'mjones',
    N'Hold for release by collections.')

-- Harrow & Pell (8) has 2,000: ten a week since Monday, 6 January 2020, at different times of the working day.
INSERT INTO tciMemo (MemoKey, MemoType, EntityType, OwnerKey, DateStamp, UserID, MemoText)
SELECT @firstMemo + 42 + s.n,
  CASE s.n % 4 WHEN 0 THEN 'Cust.AR.Coll' WHEN 1 THEN 'Cust.General' WHEN 2 THEN 'Cust.Credit' ELSE 'Cust.Internal' END,
  501, 8,
  DATEADD(minute, 480 + s.n * 37 % 480, DATEADD(day, s.n / 10 * 7 + s.n % 10 / 2, CAST('20200106' AS datetime))),
  CASE s.n % 3 WHEN 0 THEN 'jsmith' WHEN 1 THEN 'mjones' ELSE 'admin' END,
  CASE s.n % 8
    WHEN 0 THEN N'Called accounts payable about invoice ' + CAST(31000 + s.n AS varchar(10)) + N', left a message.'
    WHEN 1 THEN N'Standing order ' + CAST(700 + s.n AS varchar(10)) + N' confirmed for the Tuesday truck.'
    WHEN 2 THEN N'Released order ' + CAST(15000 + s.n AS varchar(10)) + N' over the limit, approved by telephone.'
    WHEN 3 THEN N'Margin on order ' + CAST(15000 + s.n AS varchar(10)) + N' is thin, raise the freight next time.'
    WHEN 4 THEN N'Promised payment of invoice ' + CAST(31000 + s.n AS varchar(10)) + N' with the next check run.'
    WHEN 5 THEN N'Counted the returns of ticket ' + CAST(2600 + s.n AS varchar(10)) + N' with their driver, all good.'
    WHEN 6 THEN N'Credit application page ' + CAST(s.n AS varchar(10)) + N' still unsigned, asked again.'
    ELSE N'Complaint ' + CAST(4400 + s.n AS varchar(10)) + N' closed; no credit was due.'
  END
FROM (
  SELECT a.d * 1000 + b.d * 100 + c.d * 10 + e.d AS n
  FROM (SELECT 0 AS d UNION ALL SELECT 1) a
  CROSS JOIN (SELECT 0 AS d UNION ALL SELECT 1 UNION ALL SELECT 2 UNION ALL SELECT 3 UNION ALL SELECT 4
    UNION ALL SELECT 5 UNION ALL SELECT 6 UNION ALL SELECT 7 UNION ALL SELECT 8 UNION ALL SELECT 9) b
  CROSS JOIN (SELECT 0 AS d UNION ALL SELECT 1 UNION ALL SELECT 2 UNION ALL SELECT 3 UNION ALL SELECT 4
    UNION ALL SELECT 5 UNION ALL SELECT 6 UNION ALL SELECT 7 UNION ALL SELECT 8 UNION ALL SELECT 9) c
  CROSS JOIN (SELECT 0 AS d UNION ALL SELECT 1 UNION ALL SELECT 2 UNION ALL SELECT 3 UNION ALL SELECT 4
    UNION ALL SELECT 5 UNION ALL SELECT 6 UNION ALL SELECT 7 UNION ALL SELECT 8 UNION ALL SELECT 9) e
) s

UPDATE ttwSurrogateKey SET LastKey = @firstMemo + 2041 WHERE TableName = 'tciMemo'

COMMIT TRANSACTION
GO
