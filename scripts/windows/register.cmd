@echo off
rem Registers both libraries for the user who calls:     register
rem Registers them for all users, as administrator:      register machine
rem The libraries are used where they are now: unpack the package first to where it is to stay.
rem Called unregister, this file does the opposite.
setlocal
set "name=%~n0"
set "here=%~dp0"
set whom=/n /i:user
if /i "%~1"=="machine" set whom=
if "%~1"=="" goto start
if /i "%~1"=="machine" goto start
echo usage: %name% [machine]
exit /b 2

:start
set action=
if /i "%name%"=="unregister" set action=/u
set failed=0
if not defined ProgramFiles(x86) goto only32
rem System32 holds the 64-bit programs, but is another folder to a 32-bit command interpreter; SysWOW64 holds the 32-bit
rem ones, where the system runs them.
set "native=%SystemRoot%\System32"
if exist "%SystemRoot%\Sysnative\regsvr32.exe" set "native=%SystemRoot%\Sysnative"
call :run "%native%\regsvr32.exe" x64
if exist "%SystemRoot%\SysWOW64\regsvr32.exe" call :run "%SystemRoot%\SysWOW64\regsvr32.exe" x86
exit /b %failed%

:only32
call :run "%SystemRoot%\System32\regsvr32.exe" x86
exit /b %failed%

:run
"%~1" /s %action% %whom% "%here%%~2\QOR_File.dll"
if errorlevel 1 goto failed
echo %name%: %~2\QOR_File.dll: done
exit /b 0

:failed
echo %name%: %~2\QOR_File.dll: failed with status %errorlevel%
set failed=1
exit /b 1
