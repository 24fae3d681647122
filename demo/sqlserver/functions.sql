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
  -- LEN would not count blanks at the end.
  DECLARE @length int = DATALENGTH(@text) / 2;
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
CREATE FUNCTION dbo.getEnglishDate (@farsi nvarchar(20))
RETURNS date
AS
BEGIN
  DECLARE @year int = 0;
  DECLARE @month int = 0;
  DECLARE @day int = 0;
  DECLARE @monthDays int;

  IF @farsi IS NULL
    RETURN NULL;

  IF @farsi LIKE N'[0-9][0-9][0-9][0-9]/[0-9][0-9]/[0-9][0-9]' COLLATE Latin1_General_BIN2
  BEGIN
    SET @year = CONVERT(int, SUBSTRING(@farsi, 1, 4));
    SET @month = CONVERT(int, SUBSTRING(@farsi, 6, 2));
    SET @day = CONVERT(int, SUBSTRING(@farsi, 9, 2));
  END;

  -- The first six months have 31 days, the others 30, the last one 29 in a common year.
  SET @monthDays = CASE
    WHEN @month <= 6 THEN 31
    WHEN @month <= 11 THEN 30
    WHEN (25 * @year + 11) % 33 < 8 THEN 30
    ELSE 29
  END;
  IF @year NOT BETWEEN 1 AND 9377 OR @month NOT BETWEEN 1 AND 12 OR @day NOT BETWEEN 1 AND @monthDays
    RETURN CONVERT(date, N'no date: ' + @farsi);

  -- Days since 1404/01/01, which is 2025-03-21 and has 512436 days of the calendar before it.
  -- (8 * year + 21) / 33 counts the leap years before a year.
  RETURN DATEADD(
    day,
    365 * (@year - 1) + (8 * @year + 21) / 33
    + CASE WHEN @month <= 7 THEN 31 * (@month - 1) ELSE 30 * (@month - 1) + 6 END
    + @day - 1 - 512436,
    CONVERT(date, '20250321', 112)
  );
END;
go
