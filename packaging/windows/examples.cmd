@echo off
rem Converts the samples that lie here, as runs.txt says, in a copy of this folder named results.
setlocal enableextensions disabledelayedexpansion
cd /d "%~dp0"
if not exist results mkdir results
copy /y *.* results >nul
cd results
for /f "usebackq eol=# tokens=1,2,4 delims=|" %%a in ("runs.txt") do call :convert "%%c" "%%b" %%a
echo.
echo All results, and what each run said: "%CD%"
pause
exit /b

:convert
echo.
echo == %~1
echo vantelgis -b %3 %4 %5
..\..\vantelgis.exe -b %3 %4 %5 <nul >"%~2.console"
if exist %2 (echo gives %~2) else (echo gives nothing: & type "%~2.console")
exit /b
