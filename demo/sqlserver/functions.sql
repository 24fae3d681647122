-- The suite's two functions on SQL Server 2012 and later, for a database that has not the suite's
-- own. A function can raise no error itself: for a bad value each of them runs a conversion that
-- cannot but fail, so that the caller gets the server's own number (245 or 241). Texts are compared
-- in a binary collation: it is the fastest, and no other script's digit stands in its [0-9].

-- An ID list, whole numbers between commas, as a table, one row a number in the list's order. Blanks
-- around a number do not matter; an element that is no number, the empty one included, is error 245,
-- a number too great for an int 248. The empty text and NULL give no rows.
CREATE FUNCTION dbo.fnZomirStringToTable (@text nvarchar(max))
RETURNS @list TABLE (ID int NOT NULL)
AS
BEGIN
  -- LEN alone would not count blanks at the end, and what a character takes is not the same on every
  -- server.
  DECLARE @length int = LEN(@text + N'.') - 1;
  DECLARE @from int = 1;
  DECLARE @comma int;
  DECLARE @element nvarchar(max);
  DECLARE @digits nvarchar(max);

  WHILE @length > 0 AND @from <= @length + 1
  BEGIN
    SET @comma = CHARINDEX(N',', @text COLLATE Latin1_General_BIN2, @from);
    IF @comma = 0
      SET @comma = @length + 1;
    SET @element = LTRIM(RTRIM(SUBSTRING(@text, @from, @comma - @from)));

    -- CONVERT alone takes the empty text and a sign without digits for 0.
    SET @digits = @element;
    IF LEFT(@digits, 1) = N'-' COLLATE Latin1_General_BIN2
      SET @digits = SUBSTRING(@digits, 2, @length);
    IF @digits = N'' OR @digits LIKE N'%[^0-9]%' COLLATE Latin1_General_BIN2
      SET @element = N'''' + @element + N'''';
    INSERT INTO @list (ID) VALUES (CONVERT(int, @element));

    SET @from = @comma + 1;
  END;
  RETURN;
END;
go

-- A Solar Hijri date, yyyy/mm/dd of ten characters, to its Gregorian day; NULL to NULL. Any other
-- text, a day that is none included, is error 241. The calendar is the official one of 1206 to 1498:
-- of 33 years those with (25 * year + 11) mod 33 < 8 are leap years. Years 1 to 9377 are taken.
--
-- One expression, no variable and a single RETURN: a server from 2019 on puts it into the statement
-- (is_inlineable in sys.sql_modules says so) instead of calling it for every row. CASE looks at its
-- conditions in order, so that nothing but digits is converted.
CREATE FUNCTION dbo.getEnglishDate (@farsi nvarchar(20))
RETURNS date
AS
BEGIN
  RETURN CASE
    WHEN @farsi NOT LIKE N'[0-9][0-9][0-9][0-9]/[0-9][0-9]/[0-9][0-9]' COLLATE Latin1_General_BIN2
      THEN CONVERT(date, N'no date: ' + @farsi)
    -- The first six months have 31 days, the others 30, the last one 29 in a common year.
    WHEN CONVERT(int, SUBSTRING(@farsi, 1, 4)) NOT BETWEEN 1 AND 9377
      OR CONVERT(int, SUBSTRING(@farsi, 6, 2)) NOT BETWEEN 1 AND 12
      OR CONVERT(int, SUBSTRING(@farsi, 9, 2)) NOT BETWEEN 1 AND CASE
        WHEN CONVERT(int, SUBSTRING(@farsi, 6, 2)) <= 6 THEN 31
        WHEN CONVERT(int, SUBSTRING(@farsi, 6, 2)) <= 11 THEN 30
        WHEN (25 * CONVERT(int, SUBSTRING(@farsi, 1, 4)) + 11) % 33 < 8 THEN 30
        ELSE 29
      END
      THEN CONVERT(date, N'no date: ' + @farsi)
    -- Days since 1404/01/01, which is 2025-03-21. 512833 are the terms of that day itself.
    -- (8 * year + 21) / 33 counts the leap years before a year.
    ELSE DATEADD(
      day,
      365 * CONVERT(int, SUBSTRING(@farsi, 1, 4))
      + (8 * CONVERT(int, SUBSTRING(@farsi, 1, 4)) + 21) / 33
      + 30 * CONVERT(int, SUBSTRING(@farsi, 6, 2))
      + CASE
        WHEN CONVERT(int, SUBSTRING(@farsi, 6, 2)) <= 7 THEN CONVERT(int, SUBSTRING(@farsi, 6, 2))
        ELSE 7
      END
      + CONVERT(int, SUBSTRING(@farsi, 9, 2))
      - 512833,
      CONVERT(date, '20250321', 112)
    )
  END;
END;
go
