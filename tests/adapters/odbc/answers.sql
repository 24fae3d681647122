-- Statements sent one after the other to the stand-in for a server, and what the connection answers.
-- Sent and compared whole by OdbcConnection_test.cpp.

-- Every type comes out as a text.
select * from tblValues
=> Whole|Large|Yes|Real|Price|Exact|Moment|Midnight|Day|Words|Notes
   -5|9000000000|1|0.25|1234567.25|-12.5|2025-03-21 08:30:07|2025-03-21|2025-03-21|نیک‌پی، علي كاظمي|يادداشت
   0|0|0|-1E+20|-0.5|0|1753-01-01 00:00:01|9999-12-31|0622-03-22||
   ~|~|~|~|~|~|~|~|~|~|~
select N''
=>
   
select N'نیک‌پی، علي كاظمي 😀'
=>
   نیک‌پی، علي كاظمي 😀
select N'{d ''2025-03-21''} ? 
	--'
=>
   {d '2025-03-21'} ? 
   	--

-- Results are read to the end, and the first rows kept.
change and select
=> ID|Name
   1|نیک‌پی
   2|علي كاظمي
select ID, Name from tblEmployee
=> ID|Name
   1|نیک‌پی
   2|علي كاظمي
select ID, Name from tblEmployee where ID=0
=> ID|Name
update tblEmployee Set Name=N'x'
=> 1 affected
delete tblEmployee where ID=0
=> 0 affected
create table tblNew(ID int)
=> done
print N'سلام'
=> done
Select SCOPE_IDENTITY() as newID
=> newID
   7

-- Errors bring number and text, and leave the session.
select * from tblNowhere
=> 208 پايگاه داده جدول، نما، تابع يا روالي را كه خواسته شد ندارد. نام و نسخه پايگاه داده را بررسي كنيد.
   ‪[FreeTDS][SQL Server]Invalid object name 'tblNowhere'. (SQLSTATE 42S02)‬
insert twice
=> 2627 در پايگاه داده سطري با همين كليد هست و سطر تكراري ثبت نشد.
   ‪[FreeTDS][SQL Server]Violation of UNIQUE KEY: «نیک‌پی» تكراري است. (SQLSTATE 23000)‬
   ‪[FreeTDS][SQL Server]The statement has been terminated. (SQLSTATE 01000)‬
{fn nonsense()}
=> 102 پايگاه داده دستور را نپذيرفت.
   ‪[FreeTDS][SQL Server]Incorrect syntax near '{fn nonsense()}'. (SQLSTATE 42000)‬
select and fail
=> 208 پايگاه داده جدول، نما، تابع يا روالي را كه خواسته شد ندارد. نام و نسخه پايگاه داده را بررسي كنيد.
   ‪[FreeTDS][SQL Server]Invalid object name 'tblNowhere'. (SQLSTATE 42S02)‬
fail the same twice
=> 208 پايگاه داده جدول، نما، تابع يا روالي را كه خواسته شد ندارد. نام و نسخه پايگاه داده را بررسي كنيد.
   ‪[FreeTDS][SQL Server]Invalid object name 'tblNowhere'. (SQLSTATE 42S02)‬
change and fail
=> 2627 در پايگاه داده سطري با همين كليد هست و سطر تكراري ثبت نشد.
   ‪[FreeTDS][SQL Server]Violation of UNIQUE KEY: «نیک‌پی» تكراري است. (SQLSTATE 23000)‬
   ‪[FreeTDS][SQL Server]The statement has been terminated. (SQLSTATE 01000)‬
select twice and fail within the rows
=> 245 پايگاه داده دستور را نپذيرفت.
   ‪[FreeTDS][SQL Server]Conversion failed. (SQLSTATE 22018)‬
fail within the rows
=> 245 پايگاه داده دستور را نپذيرفت.
   ‪[FreeTDS][SQL Server]Conversion failed. (SQLSTATE 22018)‬
select ID, Name from tblEmployee
=> ID|Name
   1|نیک‌پی
   2|علي كاظمي

-- The server's words stand behind a sentence, set apart; also of a number not known.
fail 1205
=> 1205 كار شما با كار همزمان كاربر ديگري در پايگاه داده برخورد كرد و كنار گذاشته شد. برنامه بازارياب را از نو باز كنيد، نگاه كنيد و دوباره تلاش كنيد.
   ‪[FreeTDS][SQL Server]The server's words 1205. (SQLSTATE 42000)‬
fail 8134
=> 8134 پايگاه داده دستور را نپذيرفت.
   ‪[FreeTDS][SQL Server]The server's words 8134. (SQLSTATE 22012)‬
select ID, Name from tblEmployee
=> ID|Name
   1|نیک‌پی
   2|علي كاظمي
