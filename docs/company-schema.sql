-- The company database on a Microsoft SQL Server, as `workbench create` makes it.
--
-- Database: its collation must have the Chinese code page (Chinese_PRC_CI_AS), because the
-- library's statements hold plain literals ('...', without N). The text columns name it, so that
-- letters of either case and trailing blanks compare equal.
--
-- Rights, for the logins of three kinds:
--   to make a company:  CREATE TABLE, ALTER ON SCHEMA, and what follows
--   to work:            SELECT, INSERT, UPDATE, DELETE on all ten tables
--   to look and check:  SELECT on all ten tables, for example
--       CREATE ROLE company_reader;
--       GRANT SELECT ON SCHEMA::dbo TO company_reader;
--
-- Connection strings of the two usual drivers:
--   Driver={ODBC Driver 18 for SQL Server};Server=db.example,1433;Database=company;UID=...;PWD=...
--   Driver=FreeTDS;Server=db.example;Port=1433;TDS_Version=7.4;Database=company;UID=...;PWD=...
--
-- Of the workbench's commands only these change rows of a live company: create --force (and only
-- of a company that create made), import, the settings page and everything that is saved, removed
-- or deleted in the windows. Closing a window stores the selected class in t_UserProfile, a font
-- choice the font. export, info, check, explain and backup read.
--
-- These statements, IDENTITY and the collation included, and the FreeTDS connection string have
-- never run on a SQL Server: the tests use PostgreSQL and SQLite.

CREATE TABLE icPriceDownClass(FItemID INT NOT NULL,FItemClassNumber NVARCHAR(80) COLLATE Chinese_PRC_CI_AS NOT NULL,FItemClassName NVARCHAR(80) COLLATE Chinese_PRC_CI_AS,FAPAccID INT,FAPNumber NVARCHAR(80) COLLATE Chinese_PRC_CI_AS,FARAccID INT,FARNumber NVARCHAR(80) COLLATE Chinese_PRC_CI_AS,FPencentPrepare FLOAT);
CREATE TABLE ICPriceDownPrepare(FItemID INT NOT NULL,FYear INT NOT NULL,FPeriod INT NOT NULL,FHaveAdd FLOAT,FCurrentAdd FLOAT);
CREATE TABLE t_voucher(FVoucherID INT IDENTITY(1,1) NOT NULL PRIMARY KEY,FYear INT NOT NULL,FPeriod INT NOT NULL,FDate NVARCHAR(10) COLLATE Chinese_PRC_CI_AS,FGroup NVARCHAR(20) COLLATE Chinese_PRC_CI_AS,FNumber INT,FTranType INT,FInternalInd NVARCHAR(20) COLLATE Chinese_PRC_CI_AS,FExplanation NVARCHAR(255) COLLATE Chinese_PRC_CI_AS);
CREATE TABLE t_ICItem(FItemID INT NOT NULL PRIMARY KEY,FNumber NVARCHAR(80) COLLATE Chinese_PRC_CI_AS,FShortNumber NVARCHAR(80) COLLATE Chinese_PRC_CI_AS,FName NVARCHAR(80) COLLATE Chinese_PRC_CI_AS,FModel NVARCHAR(255) COLLATE Chinese_PRC_CI_AS,FErpClsID INT NOT NULL,FUnitName NVARCHAR(80) COLLATE Chinese_PRC_CI_AS,FPlanPrice FLOAT,FSalePrice FLOAT);
CREATE TABLE t_account(FAccountID INT NOT NULL PRIMARY KEY,FNumber NVARCHAR(80) COLLATE Chinese_PRC_CI_AS NOT NULL,FName NVARCHAR(80) COLLATE Chinese_PRC_CI_AS,FLevel INT NOT NULL,FParentID INT NOT NULL,FDetail INT NOT NULL,FDC INT NOT NULL);
CREATE TABLE t_systemprofile(FCategory NVARCHAR(80) COLLATE Chinese_PRC_CI_AS NOT NULL,FKey NVARCHAR(80) COLLATE Chinese_PRC_CI_AS NOT NULL,FValue NVARCHAR(255) COLLATE Chinese_PRC_CI_AS);
CREATE TABLE t_UserSetting(FUserID INT NOT NULL,FCategory NVARCHAR(80) COLLATE Chinese_PRC_CI_AS NOT NULL,FKey NVARCHAR(80) COLLATE Chinese_PRC_CI_AS NOT NULL,FValue NVARCHAR(255) COLLATE Chinese_PRC_CI_AS);
CREATE TABLE t_user(FUserID INT NOT NULL PRIMARY KEY,FName NVARCHAR(80) COLLATE Chinese_PRC_CI_AS NOT NULL,FDescription NVARCHAR(255) COLLATE Chinese_PRC_CI_AS);
CREATE TABLE t_UserRight(FUserID INT NOT NULL,FObjectType INT NOT NULL,FObjectID INT NOT NULL,FAccessMask INT NOT NULL,PRIMARY KEY(FUserID,FObjectType,FObjectID));
CREATE TABLE t_UserProfile(FUserID INT NOT NULL,FApplication NVARCHAR(80) COLLATE Chinese_PRC_CI_AS NOT NULL,FSection NVARCHAR(80) COLLATE Chinese_PRC_CI_AS NOT NULL,FKey NVARCHAR(80) COLLATE Chinese_PRC_CI_AS NOT NULL,FValue NVARCHAR(4000) COLLATE Chinese_PRC_CI_AS,PRIMARY KEY(FUserID,FApplication,FSection,FKey));

CREATE INDEX ixPriceDownClassNumber ON icPriceDownClass(FItemClassNumber,FItemClassName);
CREATE INDEX ixPriceDownPrepareItem ON ICPriceDownPrepare(FItemID,FYear,FPeriod);
CREATE INDEX ixICItemNumber ON t_ICItem(FNumber);
CREATE INDEX ixAccountNumber ON t_account(FNumber);
CREATE INDEX ixVoucherPeriod ON t_voucher(FYear,FPeriod,FTranType,FInternalInd);
CREATE INDEX ixSystemProfileKey ON t_systemprofile(FCategory,FKey);
CREATE INDEX ixUserSettingKey ON t_UserSetting(FUserID,FCategory,FKey);
