@echo off
rem Checks Brindle on this computer. Needs nothing installed, and changes nothing.
"%~dp0bin\selfcheck.exe"
exit /b %ERRORLEVEL%
