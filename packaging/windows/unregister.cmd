@echo off
rem Takes back what register.cmd did.
call "%~dp0register.cmd" /u %*
exit /b %errorlevel%
