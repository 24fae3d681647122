-- Statements in the server's dialect, sent one after the other to the small office of office.sql,
-- and what the embedded database answers to each as the server would: behind "=>" the names of
-- the columns, and the rows below; how many rows were affected; or a refusal, which changes nothing.
-- Sent and compared whole by Dialect_test.cpp.

-- What the server would return.
select 1
=>
   1
SELECT 'it''s', N'متن', ''
=> ||
   it's|متن|
select top 1 ID from tblEmployee order by ID desc
=> ID
   9
select distinct PromoterID from tblDistributionPromoterProgramDetail order by 1
=> PromoterID
   7
   8
select count(*), count(Notes), min(CustomerID), sum(Sequence) from tblDistributionPromoterProgramDetail
=> |||
   3|2|5|6

-- The joining of texts.
select 'a'+'b'+'c', 'a'+null
=> |
   abc|~
select Name+Name from tblEmployee where ID=9
=>
   بهاربهار
select isnull(FirstName,'')+' '+isnull(Name,'') from tblOrganization
=>
   رضا کاظمی
    نیک‌پی

-- Pieces of one value: of each row's own, by characters, also where the value ends early.
select substring(convert(varchar,ID),1,1)+'/'+substring(convert(varchar,ID),2,1)+'.' from dbo.fnZomirStringToTable('12,12,34,5') d
=>
   1/2.
   1/2.
   3/4.
   5/.
select '<'+substring(convert(varchar,Name),2,2)+'>'+substring(convert(varchar,Name),1,1) from tblEmployee where ID<9
=>
   <اس>ی
   <رو>پ

-- Functions.
select isnull(null,3), ltrim(rtrim('  a  ')), replace('1/2','/','')
=> ||
   3|a|12
select dbo.getEnglishDate('1403/12/30'), dbo.getEnglishDate(null)
=> |
   2025-03-20|~
select ID from dbo.fnZomirStringToTable('7,5,57') d where d.ID=5
=> ID
   5
select count(*) from dbo.fnZomirStringToTable('')
=>
   0
select ID, ROW_NUMBER() OVER(ORDER BY PromoterID, CustomerID DESC) as r from tblDistributionPromoterProgramDetail, tblEmployee where ID=PromoterID order by ID, r
=> ID|r
   7|1
   7|2
   8|3

-- Conditions.
select ID from tblEmployee where ID in (7,9) and not ID=7
=> ID
   9
select ID from tblEmployee where (ID<>7 and ID!=8) or ID between 8 and 8
=> ID
   8
   9
select ID from tblOrganization where FirstName is null or Phone2 is not null
=> ID
   6
select ID from tblEmployee where Name like N'پ[ر]%' 
=> ID
   8
select ID from tblEmployee e where not exists(select pd.* from tblDistributionPromoterProgramDetail pd where pd.PromoterID=e.ID)
=> ID
   9

-- Joins and subqueries.
select o.ID, p.ID from tblOrganization o left outer join tblDistributionOrganization do on o.ID=do.OrganizationID inner join tblDistributionPath p on p.ID=do.PathID
=> ID|ID
   5|11
   6|12
select x.Many from (select CustomerID, count(*) as Many from tblDistributionPromoterProgramDetail group by CustomerID) x where x.CustomerID=5
=> Many
   2

-- A value that only names a column of the outer query keeps the outer query's rows.
select (select e.ID from tblZomirFormAction x) from tblEmployee e
=>
   ~
   ~
   ~
select ID as 'شماره', (select x.Name from tblEmployee x where x.ID=e.ID) as 'نام' from tblEmployee e order by 2 desc
=> شماره|نام
   7|یاسر
   8|پروین
   9|بهار

-- Conversions: the other side's type, the first one's of ISNULL, cut and padded as asked.
select isnull(Code,''), isnull(Code,2.5), isnull(Code,'7') from tblDistributionPromoterProgram where ID=1
=> ||
   0|2|7
select isnull(Description,'too long') from tblAccountDocumentDetail where FormID=0
=>
select isnull(ltrim(substring(Name,9,2)),'abc') from tblEmployee where ID=7
=>
   
select ID from tblOrganization where Code = 105 and ID in ('5', 7) and '5' = ID
=> ID
   5
select ID from tblEmployee where ID = 5000000000 or ID = 7.0
=> ID
   7
select convert(varchar,'1234567890123456789012345678901234'), convert(varchar(3),'abcd'), convert(nvarchar,5), convert(int,' 12 '), convert(int,2.7), convert(int,'')
=> |||||
   123456789012345678901234567890|abc|5|12|2|0

-- Dates come out in the house's form, whatever was done with them.
select CreateDate, isnull(CreateDate, '20250101'), (select max(VisitDate) from vwProgramDays), convert(varchar,CreateDate), convert(varchar(7),CreateDate) from tblDistributionPromoterProgram
=> CreateDate||||
   2025-03-21|2025-03-21|2025-03-23|2025-03-21|2025-03
   ~|2025-01-01|2025-03-23|~|~
select d.First from (select min(VisitDate) as First from vwProgramDays) d
=> First
   2025-03-22
select ID from tblDistributionPromoterProgram where CreateDate = '20250321' and CreateDate = '2025-03-21' and CreateDate between '2025-01-01' and '20251231' and CreateDate in ('2025-03-21') and CreateDate = dbo.getEnglishDate('1404/01/01')
=> ID
   1
select ID from tblDistributionPromoterProgram where CreateDate < getdate() and getdate() > CreateDate
=> ID
   1
select ID from tblDistributionPromoterProgram where CreateDate > getdate()
=> ID

-- One collation: پ before ی, no letter case, no blanks at the end, each yeh a letter.
select Name from tblEmployee order by Name
=> Name
   بهار
   پروین
   یاسر
select ID, row_number() over(order by Name) as r from tblEmployee order by r
=> ID|r
   9|1
   8|2
   7|3
select min(Name), max(Name) from tblEmployee where Name < 'ی' or Name > N'پ'
=> |
   بهار|یاسر
select distinct Description from tblAccountDocumentDetail where DocumentID=1
=> Description
   ABC
select count(*) as n from tblAccountDocumentDetail group by Description order by n
=> n
   1
   1
   2
select RowNumber from tblAccountDocumentDetail where ltrim(Description)='aBc  ' and Description in ('abC') and Description like '[a-b]bc%'
=> RowNumber
   1
   2
select RowNumber from tblAccountDocumentDetail where Description='ي'
=> RowNumber
   1
select 1 where 'A' = 'a ' and '۱' <> '1'
=>
   1

-- A sum beyond int where the column is none.
select sum(Debit) from tblAccountDocumentDetail
=>
   3000000001

-- The names of columns are the aliases.
select ID, Name as 'نام مشتري', Code as [the code], 1 as "x""y" from tblOrganization where ID=0
=> ID|نام مشتري|the code|x"y

-- What is refused, with the server's number, and changes nothing.

-- What the dialect does not know is refused, never guessed.
drop table tblEmployee
=> 156 Incorrect syntax near the keyword 'drop'.
select 1 -- all
=> 102 Incorrect syntax near '--'.
select 'abc
=> 105 Unclosed quotation mark after the character string 'abc'.
select ?
=> 102 Incorrect syntax near '?'.
select @x
=> 137 Must declare the scalar variable "@x".
select ID from tblEmployee where ID
=> 4145 An expression of non-boolean type specified in a context where a condition is expected, near ''.
select ID from tblEmployee e again
=> 102 Incorrect syntax near 'again'.
select ID from tblEmployee where ID=7=7
=> 102 Incorrect syntax near '='.
select case when 1=1 then 1 end
=> 156 Incorrect syntax near the keyword 'case'.
select top 5 percent ID from tblEmployee
=> 156 Incorrect syntax near the keyword 'percent'.
select PromoterID from vwProgramDays group by ProgramID having count(*)>1
=> 156 Incorrect syntax near the keyword 'having'.
select coalesce(null, null)
=> 156 Incorrect syntax near the keyword 'coalesce'.
select substring('abc',0,2)
=> 102 Incorrect syntax near '0'. (the embedded database does not take this: the place of a piece is a written number from 1)
select convert(varchar,ID,112) from tblEmployee
=> 102 Incorrect syntax near ','.
select convert(char(5),'ab')
=> 102 Incorrect syntax near 'char'. (the embedded database does not take this: values become int, varchar or nvarchar)
select randomblob(9)
=> 195 'randomblob' is not a recognized built-in function name.
select ID from dbo.fnZomirStringToTable('1','2') x
=> 8144 Procedure or function fnZomirStringToTable has too many arguments specified.
select name from sqlite_master
=> 208 پايگاه داده «‪office.db‬» جدول، نما، تابع يا روالي را كه خواسته شد ندارد. نام و نسخه پايگاه داده را بررسي كنيد.
   ‪Invalid object name 'sqlite_master'.‬
select (select ID, Name from tblEmployee)
=> 116 Only one expression can be specified in the select list when the subquery is not introduced with EXISTS.
insert into tblEmployee default values
=> 156 Incorrect syntax near the keyword 'default'.
insert into tblEmployee(ID, Name) values (1,'a') on conflict do nothing
=> 156 Incorrect syntax near the keyword 'on'.
update tblEmployee set Name='a' from tblOrganization
=> 156 Incorrect syntax near the keyword 'from'.
update tblAccountDocumentDetail set RowNumber=FormID
=> 102 Incorrect syntax near 'FormID'. (the embedded database does not take this: a column of a key is given one value for all rows)
select ID+1 from tblEmployee
=> 102 Incorrect syntax near '+'. (the embedded database does not take this: numbers are not added)
select 1.50
=> 102 Incorrect syntax near '1.50'. (the embedded database does not take this: a number keeps no digits behind its point)
select replace(Name,'a','b') from tblEmployee
=> 102 Incorrect syntax near 'replace'. (the embedded database does not take this: only a written text without Latin letters is replaced)
select Content from tblZomirFormAttachment
=> 102 Incorrect syntax near 'Content'. (the embedded database does not take this: bytes are not read)
select ID from tblDistributionPromoterProgram where CreateDate=getdate()
=> 102 Incorrect syntax near '='. (the embedded database does not take this: a day is no moment)

-- Names.
select ID from tblNowhere
=> 208 پايگاه داده «‪office.db‬» جدول، نما، تابع يا روالي را كه خواسته شد ندارد. نام و نسخه پايگاه داده را بررسي كنيد.
   ‪Invalid object name 'tblNowhere'.‬
select Nothing from tblEmployee
=> 207 پايگاه داده «‪office.db‬» ستوني را كه خواسته شد ندارد. نام و نسخه پايگاه داده را بررسي كنيد.
   ‪Invalid column name 'Nothing'.‬
select rowid from tblEmployee
=> 207 پايگاه داده «‪office.db‬» ستوني را كه خواسته شد ندارد. نام و نسخه پايگاه داده را بررسي كنيد.
   ‪Invalid column name 'rowid'.‬
select d.List from dbo.fnZomirStringToTable('1') d
=> 207 پايگاه داده «‪office.db‬» ستوني را كه خواسته شد ندارد. نام و نسخه پايگاه داده را بررسي كنيد.
   ‪Invalid column name 'List'.‬
select Name as n from tblEmployee where n='x'
=> 207 پايگاه داده «‪office.db‬» ستوني را كه خواسته شد ندارد. نام و نسخه پايگاه داده را بررسي كنيد.
   ‪Invalid column name 'n'.‬
select ID from tblEmployee, tblOrganization
=> 209 Ambiguous column name 'ID'.
select a.Name from tblEmployee a, tblOrganization b order by ID
=> 209 Ambiguous column name 'ID'.
select tblEmployee.ID from tblEmployee e
=> 4104 The multi-part identifier "tblEmployee.ID" could not be bound.
select a.ID from tblEmployee a, tblOrganization b left join tblDistributionPath c on c.ID=a.ID
=> 4104 The multi-part identifier "a.ID" could not be bound.
select x.* from tblEmployee
=> 107 The column prefix 'x' does not match with a table name or alias name used in the query.
select * from tblEmployee, tblEmployee
=> 1013 The name 'tblemployee' is specified multiple times in a FROM clause. Use correlation names to distinguish them.
select * from tblEmployee a, tblOrganization a
=> 1011 The name 'a' is specified multiple times in a FROM clause. Use correlation names to distinguish them.
select *
=> 263 Must specify table to select from.
select * from (select 1) x
=> 8155 No column name was specified for column 1 of 'x'.
select * from (select ID, ID from tblEmployee) x
=> 8156 The column 'ID' was specified multiple times for 'x'.

-- Groups and orders.
select Name from tblEmployee group by ID
=> 8120 Column 'Name' is invalid in the select list because it is not contained in either an aggregate function or the GROUP BY clause.
select ID, count(*) from tblEmployee
=> 8120 Column 'ID' is invalid in the select list because it is not contained in either an aggregate function or the GROUP BY clause.
select count(*) from tblEmployee order by Name
=> 8127 Column 'Name' is invalid in the select list because it is not contained in either an aggregate function or the GROUP BY clause.
select count(*) from tblEmployee group by 1
=> 164 Each GROUP BY expression must contain at least one column that is not an outer reference.
select ID from tblEmployee where count(*)=1
=> 147 An aggregate may not appear in the WHERE clause.
select max((select 1)) from tblEmployee
=> 130 Cannot perform an aggregate function on an expression containing an aggregate or a subquery.
select distinct ID from tblEmployee order by Name
=> 145 ORDER BY items must appear in the select list if SELECT DISTINCT is specified.
select ID from tblEmployee order by 'x'
=> 408 A constant expression was encountered in the ORDER BY list, position 1.
select ID from tblEmployee order by 2
=> 108 The ORDER BY position number 2 is out of range of the number of items in the select list.
select ID from tblEmployee order by ID, 1
=> 169 A column has been specified more than once in the order by list.
select ID, * from tblEmployee order by ID
=> 209 Ambiguous column name 'ID'.
select ID from (select ID from tblEmployee order by ID) x
=> 1033 The ORDER BY clause is invalid in views, inline functions, derived tables, subqueries, and common table expressions, unless TOP is also specified.

-- Types.
select 'a'+1
=> 245 Conversion failed when converting the varchar value 'a' to data type int.
select 1 where 5 = 'x'
=> 245 Conversion failed when converting the varchar value 'x' to data type int.
select ID from tblEmployee where Name = 5
=> 245 Conversion failed when converting the varchar value 'یاسر' to data type int.
select convert(int,3000000000)
=> 8115 Arithmetic overflow error converting expression to data type int.
select convert(int,'3000000000')
=> 248 The conversion of the varchar value '3000000000' overflowed an int column.
select convert(varchar(0),'a')
=> 1001 Length or precision 0 is invalid.
select convert(varchar(8000),'a'), convert(nvarchar(4000),'b')
=> |
   a|b
select convert(nvarchar(4001),'a')
=> 131 The size (4001) given to the type 'nvarchar' exceeds the maximum allowed for any data type.
select convert(varchar(9000),'a')
=> 131 The size (9000) given to the type 'varchar' exceeds the maximum allowed for any data type.
select convert(int,CreateDate) from tblDistributionPromoterProgram
=> 529 Explicit conversion from data type date to int is not allowed.
select ID from tblDistributionPromoterProgram where CreateDate=20250321
=> 206 Operand type clash: date is incompatible with int
select ID from tblDistributionPromoterProgram where CreateDate='20250230'
=> 241 Conversion failed when converting date and/or time from character string '20250230'.
select 'a'+CreateDate from tblDistributionPromoterProgram
=> 402 The data type date is incompatible in the add operator.
select sum(CreateDate) from tblDistributionPromoterProgram
=> 8117 Operand data type date is invalid for sum operator.
select sum(Name) from tblEmployee
=> 8117 Operand data type nvarchar is invalid for sum operator.
select sum(FormID) from tblAccountDocumentDetail
=> 8115 Arithmetic overflow error converting expression to data type int.
select substring(ID,1,1) from tblEmployee
=> 8116 Argument data type int is invalid for argument 1 of substring function.
select dbo.getEnglishDate('')
=> 241 Conversion failed when converting date and/or time from character string ''.
select dbo.getEnglishDate('1403/13/40')
=> 241 Conversion failed when converting date and/or time from character string '1403/13/40'.
select ID from dbo.fnZomirStringToTable('1,x') d
=> 245 Conversion failed when converting the varchar value 'x' to data type int.
select ID from dbo.fnZomirStringToTable('5000000000') d
=> 248 The conversion of the varchar value '5000000000' overflowed an int column.
select (select ID from tblEmployee)
=> 512 در پايگاه داده براي چيزي كه بايد يكي باشد چند سطر هست، براي نمونه يك مشتري در دو مسير. به مدير سيستم بگوييد.
   ‪Subquery returned more than 1 value. This is not permitted when the subquery is used as an expression.‬

-- What is stored.
insert into tblEmployee(ID, Name) values (1, null)
=> 515 Cannot insert the value NULL into column 'tblEmployee.Name'; column does not allow nulls. (NOT NULL constraint failed: tblEmployee.Name)
insert into tblEmployee(Name) values ('a')
=> 515 Cannot insert the value NULL into column 'ID', table 'tblEmployee'; column does not allow nulls.
insert into tblOrganization(ID, Code) values (9, '105')
=> 2627 در پايگاه داده «‪office.db‬» سطري با همين كليد هست و سطر تكراري ثبت نشد.
   ‪Violation of PRIMARY KEY or UNIQUE KEY constraint. Cannot insert duplicate key. (UNIQUE constraint failed: tblOrganization.Code)‬
insert into tblDistributionPromoterProgram(ID) values (9)
=> 544 Cannot insert explicit value for identity column in table 'tblDistributionPromoterProgram' when IDENTITY_INSERT is set to OFF.
update tblDistributionPromoterProgram set ID=9
=> 8102 Cannot update identity column 'ID'.
update tblEmployee set Name='a', name='b'
=> 264 The column name 'name' is specified more than once in the SET clause or column list of an INSERT.
insert into tblEmployee(ID, Name) values (1)
=> 109 The number of values does not match the number of columns of the INSERT.
insert into tblEmployee values (1, 'a', 2)
=> 213 The number of values does not match the number of columns of the INSERT.
insert into tblEmployee(ID, Name) select ID from tblOrganization
=> 120 The number of values does not match the number of columns of the INSERT.
update tblDistributionPromoterProgram set Code='12a'
=> 245 Conversion failed when converting the varchar value '12a' to data type int.
update tblDistributionPromoterProgram set Code=5000000000
=> 8115 Arithmetic overflow error converting expression to data type int.
update tblDistributionPromoterProgram set CreateDate='99999999'
=> 241 Conversion failed when converting date and/or time from character string '99999999'.
update tblAccountDocumentDetail set Description='123456'
=> 8152 متن ستون «‪Description‬» بلندتر از 5 نويسه است و چيزي ثبت نشد. String or binary data would be truncated.
update vwProgramDays set VisitDate=null
=> 102 Incorrect syntax near 'vwProgramDays'. (the embedded database does not take this: a view is only read)
delete tblDistributionPromoterProgram Where ID=1
=> 547 پايگاه داده «‪office.db‬» اين كار را نپذيرفت: داده ديگري به آن وابسته است، يا آنچه به آن اشاره شده وجود ندارد.
   ‪The statement conflicted with a REFERENCE constraint. (FOREIGN KEY constraint failed)‬
insert into tblDistributionPromoterProgramDetail(ProgramID, PromoterID, CustomerID) values (99, 1, 1)
=> 547 پايگاه داده «‪office.db‬» اين كار را نپذيرفت: داده ديگري به آن وابسته است، يا آنچه به آن اشاره شده وجود ندارد.
   ‪The statement conflicted with a REFERENCE constraint. (FOREIGN KEY constraint failed)‬

-- Notes that end their own literal.
update tblDistributionPromoterProgram Set Notes='it's', Code=NULL
=> 105 Unclosed quotation mark after the character string ', Code=NULL'.
update tblDistributionPromoterProgram Set Notes=''', Code=NULL
=> 105 Unclosed quotation mark after the character string ''', Code=NULL'.
update tblEmployee Set Name='x' Where ID=7 --'
=> 102 Incorrect syntax near '--'.
update tblEmployee Set Name='x'; delete tblEmployee where '1'='1'
=> 156 Incorrect syntax near the keyword 'delete'.

-- A row that fails takes the rows before it with it.
insert into tblEmployee(ID, Name) values (20,'a'), (21,'b'), (7,'c')
=> 2627 در پايگاه داده «‪office.db‬» سطري با همين كليد هست و سطر تكراري ثبت نشد.
   ‪Violation of PRIMARY KEY or UNIQUE KEY constraint. Cannot insert duplicate key. (UNIQUE constraint failed: tblEmployee.ID)‬
insert into tblEmployee(ID, Name) select d.ID, convert(varchar,dbo.getEnglishDate(convert(varchar,d.ID)+'/01/01')) from dbo.fnZomirStringToTable('1403,1404,99999') d
=> 241 Conversion failed when converting date and/or time from character string '99999/01/01'.
select * from tblEmployee
=> ID|Name
   7|یاسر
   8|پروین
   9|بهار

-- What is stored is what the server would store.
update tblDistributionPromoterProgram set Code='', CreateDate='2025-11-22', Notes=12 where ID=1
=> 1 affected
select Code, CreateDate, Notes from tblDistributionPromoterProgram where ID=1
=> Code|CreateDate|Notes
   0|2025-11-22|12
update tblDistributionPromoterProgram set Code=2.7, CreateDate=null, Notes=dbo.getEnglishDate('1404/01/01') where ID=1
=> 1 affected
select Code, CreateDate, Notes from tblDistributionPromoterProgram where ID=1
=> Code|CreateDate|Notes
   2|~|2025-03-21
update tblDistributionPromoterProgram set Code='  -3 ', Notes=CreateDate where ID=1
=> 1 affected
select Code, CreateDate, Notes from tblDistributionPromoterProgram where ID=1
=> Code|CreateDate|Notes
   -3|~|~
update tblAccountDocumentDetail set Description='abcd     ', Debit=9000000000 where FormID in (select ID from tblEmployee) or 1=1
=> 4 affected
select distinct Description+'|' from tblAccountDocumentDetail
=>
   abcd |
delete tblAccountDocumentDetail where exists (select e.ID from tblOrganization e where e.ID = FormID) and Debit = 9000000000
=> 2 affected
select count(*) from tblAccountDocumentDetail
=>
   2
insert into tblZomirFormAttachment(ID, FileName, Shown) values (1, 'a', 0), (2, 'b', 00), (3, 'c', -7)
=> 3 affected
select ID from tblZomirFormAttachment where Shown=1
=> ID
   3
update tblZomirFormAttachment set Shown='yes'
=> 102 Incorrect syntax near 'yes'. (the embedded database does not take this: nvarchar does not become bit)

-- The last identity: neither a table without one, nor a statement that failed or found no rows,
-- moves it.
Select SCOPE_IDENTITY() as newID
=> newID
   ~
insert into tblDistributionPromoterProgram (Notes) values (null)
=> 1 affected
Select SCOPE_IDENTITY() as newID
=> newID
   3
insert into tblDistributionPromoterProgramDetail(ProgramID, PromoterID, CustomerID) values (1, 7, 6)
=> 1 affected
insert into tblEmployee(ID, Name) values (30,'a'), (7,'b')
=> 2627 در پايگاه داده «‪office.db‬» سطري با همين كليد هست و سطر تكراري ثبت نشد.
   ‪Violation of PRIMARY KEY or UNIQUE KEY constraint. Cannot insert duplicate key. (UNIQUE constraint failed: tblEmployee.ID)‬
insert into tblEmployee(ID, Name) select ID, Name from tblEmployee where ID=0
=> 0 affected
Select SCOPE_IDENTITY() as newID
=> newID
   3
insert into tblDistributionPromoterProgram (Notes) values (null)
=> 1 affected
Select SCOPE_IDENTITY() as newID
=> newID
   4

-- The batch numbers new visits by day and customer and leaves out those that are there. A customer
-- on two paths is planned twice a day.
insert into tblDistributionPromoterProgramDetail(ProgramID, PromoterID, FarsiVisitDate, VisitDate, CustomerID, Notes, Sequence) select 2, 7 , substring(convert(varchar,d.ID), 1,4)+'/'+substring(convert(varchar,d.ID),5,2)+'/'+substring(convert(varchar,d.ID),7,2) , dbo.getEnglishDate(substring(convert(varchar,d.ID), 1,4)+'/'+substring(convert(varchar,d.ID),5,2)+'/'+substring(convert(varchar,d.ID),7,2)) , o.ID, 'a''b', ROW_NUMBER() OVER(ORDER BY d.id, o.ID ASC) AS aRow  from  dbo.fnZomirStringToTable('13920705,13920712') d , dbo.fnZomirStringToTable('9,5') o  left outer join tblDistributionOrganization do on o.ID=do.OrganizationID  where not exists(select pd.* from tblDistributionPromoterProgramDetail pd  where pd.ProgramID=2 and pd.PromoterID=7 and replace(pd.FarsiVisitDate,'/','')=convert(varchar,d.ID)  and pd.CustomerID=o.ID) 
=> 4 affected
select FarsiVisitDate, VisitDate, CustomerID, Notes, Sequence from tblDistributionPromoterProgramDetail where ProgramID=2 order by FarsiVisitDate, Sequence
=> FarsiVisitDate|VisitDate|CustomerID|Notes|Sequence
   1392/07/05|2013-09-27|5|a'b|1
   1392/07/05|2013-09-27|9|a'b|2
   1392/07/12|2013-10-04|5|a'b|3
   1392/07/12|2013-10-04|9|a'b|4
delete tblDistributionPromoterProgramDetail where ProgramID=2 and Sequence <> 3
=> 3 affected
insert into tblDistributionOrganization values (9, 11, 1), (9, 12, 1)
=> 2 affected
insert into tblDistributionPromoterProgramDetail(ProgramID, PromoterID, FarsiVisitDate, VisitDate, CustomerID, Notes, Sequence) select 2, 7 , substring(convert(varchar,d.ID), 1,4)+'/'+substring(convert(varchar,d.ID),5,2)+'/'+substring(convert(varchar,d.ID),7,2) , dbo.getEnglishDate(substring(convert(varchar,d.ID), 1,4)+'/'+substring(convert(varchar,d.ID),5,2)+'/'+substring(convert(varchar,d.ID),7,2)) , o.ID, 'a''b', ROW_NUMBER() OVER(ORDER BY d.id, o.ID ASC) AS aRow  from  dbo.fnZomirStringToTable('13920705,13920712') d , dbo.fnZomirStringToTable('9,5') o  left outer join tblDistributionOrganization do on o.ID=do.OrganizationID  where not exists(select pd.* from tblDistributionPromoterProgramDetail pd  where pd.ProgramID=2 and pd.PromoterID=7 and replace(pd.FarsiVisitDate,'/','')=convert(varchar,d.ID)  and pd.CustomerID=o.ID) 
=> 5 affected
insert into tblDistributionPromoterProgramDetail(ProgramID, PromoterID, FarsiVisitDate, VisitDate, CustomerID, Notes, Sequence) select 2, 7 , substring(convert(varchar,d.ID), 1,4)+'/'+substring(convert(varchar,d.ID),5,2)+'/'+substring(convert(varchar,d.ID),7,2) , dbo.getEnglishDate(substring(convert(varchar,d.ID), 1,4)+'/'+substring(convert(varchar,d.ID),5,2)+'/'+substring(convert(varchar,d.ID),7,2)) , o.ID, 'a''b', ROW_NUMBER() OVER(ORDER BY d.id, o.ID ASC) AS aRow  from  dbo.fnZomirStringToTable('13920705,13920712') d , dbo.fnZomirStringToTable('9,5') o  left outer join tblDistributionOrganization do on o.ID=do.OrganizationID  where not exists(select pd.* from tblDistributionPromoterProgramDetail pd  where pd.ProgramID=2 and pd.PromoterID=7 and replace(pd.FarsiVisitDate,'/','')=convert(varchar,d.ID)  and pd.CustomerID=o.ID) 
=> 0 affected
select CustomerID, Sequence from tblDistributionPromoterProgramDetail where ProgramID=2 and FarsiVisitDate='1392/07/12' order by Sequence
=> CustomerID|Sequence
   5|3
   9|4
   9|5
