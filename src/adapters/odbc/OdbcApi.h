#pragma once

// The ODBC API as this folder uses it: wide entry points, UTF-16.
#ifdef _WIN32
#include <windows.h>
#endif

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

static_assert(sizeof(SQLWCHAR) == 2, "the driver manager must speak UTF-16");
