// Read before everything else by second_compiler.sh: makes the use of a function of the C library a warning that
// Visual C++ calls unsafe (C4996). A source for which _CRT_SECURE_NO_WARNINGS is defined may use them, here as
// there. An attribute would not do: the C++ headers know the functions by earlier declarations than ours.
#pragma once

#ifndef _CRT_SECURE_NO_WARNINGS

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <cwchar>

// Texts whose room is not told.
#define strcpy strcpy
#pragma clang deprecated(strcpy, "C4996")
#define strcat strcat
#pragma clang deprecated(strcat, "C4996")
#define strncpy strncpy
#pragma clang deprecated(strncpy, "C4996")
#define strncat strncat
#pragma clang deprecated(strncat, "C4996")
#define strtok strtok
#pragma clang deprecated(strtok, "C4996")
#define wcscpy wcscpy
#pragma clang deprecated(wcscpy, "C4996")
#define wcscat wcscat
#pragma clang deprecated(wcscat, "C4996")
#define wcsncpy wcsncpy
#pragma clang deprecated(wcsncpy, "C4996")
#define wcsncat wcsncat
#pragma clang deprecated(wcsncat, "C4996")
#define wcstok wcstok
#pragma clang deprecated(wcstok, "C4996")
#define sprintf sprintf
#pragma clang deprecated(sprintf, "C4996")
#define vsprintf vsprintf
#pragma clang deprecated(vsprintf, "C4996")
#define _snprintf _snprintf
#pragma clang deprecated(_snprintf, "C4996")
#define _vsnprintf _vsnprintf
#pragma clang deprecated(_vsnprintf, "C4996")
#define _snwprintf _snwprintf
#pragma clang deprecated(_snwprintf, "C4996")
#define _vsnwprintf _vsnwprintf
#pragma clang deprecated(_vsnwprintf, "C4996")
#define mbstowcs mbstowcs
#pragma clang deprecated(mbstowcs, "C4996")
#define wcstombs wcstombs
#pragma clang deprecated(wcstombs, "C4996")
#define wctomb wctomb
#pragma clang deprecated(wctomb, "C4996")
#define mbsrtowcs mbsrtowcs
#pragma clang deprecated(mbsrtowcs, "C4996")
#define wcsrtombs wcsrtombs
#pragma clang deprecated(wcsrtombs, "C4996")
#define wcrtomb wcrtomb
#pragma clang deprecated(wcrtomb, "C4996")
#define _itow _itow
#pragma clang deprecated(_itow, "C4996")
#define _ltow _ltow
#pragma clang deprecated(_ltow, "C4996")
#define _ultow _ultow
#pragma clang deprecated(_ultow, "C4996")
#define _i64tow _i64tow
#pragma clang deprecated(_i64tow, "C4996")
#define _ui64tow _ui64tow
#pragma clang deprecated(_ui64tow, "C4996")
#define _itoa _itoa
#pragma clang deprecated(_itoa, "C4996")
#define _ltoa _ltoa
#pragma clang deprecated(_ltoa, "C4996")
#define _ultoa _ultoa
#pragma clang deprecated(_ultoa, "C4996")
#define _wsplitpath _wsplitpath
#pragma clang deprecated(_wsplitpath, "C4996")
#define _wmakepath _wmakepath
#pragma clang deprecated(_wmakepath, "C4996")
#define _wcslwr _wcslwr
#pragma clang deprecated(_wcslwr, "C4996")
#define _wcsupr _wcsupr
#pragma clang deprecated(_wcsupr, "C4996")
#define _strlwr _strlwr
#pragma clang deprecated(_strlwr, "C4996")
#define _strupr _strupr
#pragma clang deprecated(_strupr, "C4996")

// Reading by format.
#define scanf scanf
#pragma clang deprecated(scanf, "C4996")
#define sscanf sscanf
#pragma clang deprecated(sscanf, "C4996")
#define fscanf fscanf
#pragma clang deprecated(fscanf, "C4996")
#define wscanf wscanf
#pragma clang deprecated(wscanf, "C4996")
#define swscanf swscanf
#pragma clang deprecated(swscanf, "C4996")
#define fwscanf fwscanf
#pragma clang deprecated(fwscanf, "C4996")

// Files and the environment.
#define fopen fopen
#pragma clang deprecated(fopen, "C4996")
#define freopen freopen
#pragma clang deprecated(freopen, "C4996")
#define _wfopen _wfopen
#pragma clang deprecated(_wfopen, "C4996")
#define _wfreopen _wfreopen
#pragma clang deprecated(_wfreopen, "C4996")
#define tmpfile tmpfile
#pragma clang deprecated(tmpfile, "C4996")
#define tmpnam tmpnam
#pragma clang deprecated(tmpnam, "C4996")
#define setbuf setbuf
#pragma clang deprecated(setbuf, "C4996")
#define getenv getenv
#pragma clang deprecated(getenv, "C4996")
#define _wgetenv _wgetenv
#pragma clang deprecated(_wgetenv, "C4996")
#define strerror strerror
#pragma clang deprecated(strerror, "C4996")
#define _wcserror _wcserror
#pragma clang deprecated(_wcserror, "C4996")

// Times in memory that all threads share.
#define localtime localtime
#pragma clang deprecated(localtime, "C4996")
#define gmtime gmtime
#pragma clang deprecated(gmtime, "C4996")
#define ctime ctime
#pragma clang deprecated(ctime, "C4996")
#define asctime asctime
#pragma clang deprecated(asctime, "C4996")
#define _wctime _wctime
#pragma clang deprecated(_wctime, "C4996")
#define _wasctime _wasctime
#pragma clang deprecated(_wasctime, "C4996")

#endif
