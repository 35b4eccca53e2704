@echo off
rem Registers the libraries beside this file, each with the regsvr32 of its own kind.
rem   register.cmd [/u] [/s]    /u takes the registration back, /s does not wait for a key in the end
rem Without an administrator's rights the libraries register themselves for this user alone.
setlocal
set "folder=%~dp0"
set "switch="
set "what=registered"
set "silent="
set "failed=0"

:arguments
if "%~1"=="" goto begin
if /i "%~1"=="/s" set "silent=yes"
if /i not "%~1"=="/u" goto next
set "switch=/u"
set "what=unregistered"
:next
shift
goto arguments

:begin
rem A 32-bit command line sees the 32-bit folder under the name of System32; Sysnative is the other one.
set "native=%SystemRoot%\System32"
if defined PROCESSOR_ARCHITEW6432 set "native=%SystemRoot%\Sysnative"
set "machine=%PROCESSOR_ARCHITECTURE%"
if defined PROCESSOR_ARCHITEW6432 set "machine=%PROCESSOR_ARCHITEW6432%"
if /i "%machine%"=="x86" goto only32
if /i "%machine%"=="AMD64" call :library x64 "%native%\regsvr32.exe"
call :library x86 "%SystemRoot%\SysWOW64\regsvr32.exe"
goto summary
:only32
call :library x86 "%native%\regsvr32.exe"

:summary
echo.
call :scope HKLM "for all users of this machine"
call :scope HKCU "for this user"
if defined switch if not "%failed%"=="0" echo What is registered for all users takes an administrator to take back.
if not defined switch if "%failed%"=="0" echo Leave the files where they are: the registration names them.
if not defined silent pause
exit /b %failed%

rem :library FOLDER REGSVR32
:library
if not exist "%~2" goto no_such_hosts
if not exist "%folder%%~1\Quorvel.dll" goto missing
start "" /wait "%~2" /s %switch% "%folder%%~1\Quorvel.dll"
set "code=%errorlevel%"
if not "%code%"=="0" goto refused
echo %~1\Quorvel.dll: %what%.
goto :eof
:no_such_hosts
echo %~1\Quorvel.dll: left out, since this Windows runs no programs of that kind.
goto :eof
:missing
echo %~1\Quorvel.dll: not beside this file.
set "failed=1"
goto :eof
:refused
set "why=regsvr32 ended with code %code%"
if "%code%"=="3" set "why=the file cannot be loaded"
if "%code%"=="5" set "why=the library could not change the registry"
echo %~1\Quorvel.dll: NOT %what%: %why%.
set "failed=1"
goto :eof

rem :scope HIVE FOR_WHOM: says so when the component is registered there now.
:scope
reg query "%~1\Software\Classes\Quorvel.RemarkContext" >nul 2>&1
if not errorlevel 1 echo Quorvel is registered %~2.
goto :eof
