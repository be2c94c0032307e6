@echo off
rem Runs vantelgis on many inputs, several at a time, with nobody at the console.
setlocal enableextensions disabledelayedexpansion
if "%~1"=="--worker" goto worker

set "runs=%NUMBER_OF_PROCESSORS%"
set "logFolder="
set "program=%~dp0vantelgis.exe"
if not exist "%program%" set "program=vantelgis.exe"
:option
if "%~1"=="-j" set "runs=%~2" & shift & shift & goto option
if "%~1"=="-l" set "logFolder=%~2" & shift & shift & goto option
if "%~1"=="-p" set "program=%~2" & shift & shift & goto option
if "%~1"=="" goto usage
if "%~1"=="--" goto usage
if "%~1"=="-h" goto usage
set /a runs=runs 2>nul
if "%runs%"=="" set runs=0
if %runs% lss 1 echo vantelgis-batch: -j needs a number above 0 1>&2 & exit /b 2
if not defined logFolder goto inputs
if not exist "%logFolder%\." mkdir "%logFolder%"
if not exist "%logFolder%\." exit /b 2

:inputs
set "work=%TEMP%\vantelgis-batch-%RANDOM%-%RANDOM%"
mkdir "%work%"
if not exist "%work%\." exit /b 2
type nul >"%work%\inputs"
set count=0
:input
if "%~1"=="" goto arguments
if "%~1"=="--" shift & goto arguments
for %%f in ("%~1") do call :addInput "%%~f"
shift
goto input

:arguments
set "arguments="
:argument
if "%~1"=="" goto run
set arguments=%arguments% %1
shift
goto argument

:run
if %count%==0 rmdir /s /q "%work%" & goto usage
for /l %%k in (1,1,%runs%) do start "" /b cmd /c call "%~f0" --worker %%k
:wait
set "busy="
for /l %%k in (1,1,%runs%) do if not exist "%work%\done.%%k" set busy=yes
if defined busy ping -n 2 127.0.0.1 >nul & goto wait

set number=0
set faulty=0
type nul >"%work%\faults"
for /f "usebackq delims=" %%f in ("%work%\inputs") do call :judge "%%f"
if %faulty%==0 echo %count% runs, all well
if not %faulty%==0 echo %faulty% of %count% runs are not well:
type "%work%\faults"
rmdir /s /q "%work%"
if %faulty%==0 exit /b 0
exit /b 1

:addInput
set /a count+=1
>>"%work%\inputs" echo %~1
exit /b

rem A log lies beside its input, or is numbered in the order of the inputs.
:nameLog
set "log=%~1.log"
if not defined logFolder exit /b
set "digits=000%number%"
set "log=%logFolder%\%digits:~-4%-%~nx1.log"
exit /b

:judge
set /a number+=1
call :nameLog %1
set "reason="
set "finished="
for /f "tokens=1*" %%v in ('find "ERROR" ^< "%log%"') do if "%%v"=="ERROR" if not defined reason set "reason=%%v %%w"
for /f "delims=" %%l in ('find "WARNING" ^< "%log%"') do if "%%l"=="WARNING - Problems finding start of data in .12da file" if not defined reason set "reason=%%l"
for /f "delims=" %%l in ('find "Finished." ^< "%log%"') do if "%%l"=="Finished." set "finished=yes"
if not defined finished if not defined reason set "reason=There is no line Finished."
if not defined reason exit /b
set /a faulty+=1
setlocal enabledelayedexpansion
>>"%work%\faults" echo   !log!: !reason!
endlocal
exit /b

rem Every so many-th of the inputs, from its own number on.
:worker
set number=0
for /f "usebackq delims=" %%f in ("%work%\inputs") do call :runInTurn "%%f" %2
type nul >"%work%\done.%2"
exit /b

:runInTurn
set /a number+=1
set /a turn=(number - 1) %% runs + 1
if not %turn%==%2 exit /b
call :nameLog %1
"%program%" %1 %arguments% <nul >"%log%" 2>&1
exit /b

:usage
echo Usage: vantelgis-batch [-j RUNS] [-l FOLDER] [-p PROGRAM] INPUT... [-- ARGUMENT...]
echo.
echo Runs vantelgis once for each INPUT, with the ARGUMENTs (options, a File 2) behind it. An INPUT may
echo hold wildcards.
echo   -j RUNS     how many runs at a time; as many as there are processors if not given
echo   -l FOLDER   keep the logs in this folder, numbered in the order of the inputs; if not given,
echo               each log lies beside its input as INPUT.log
echo   -p PROGRAM  the program to run; if not given, the vantelgis.exe beside this script or in PATH
echo.
echo Each run has an empty standard input, so that none waits for an answer. Its log is what it wrote to
echo the console. A run is well when it wrote "Finished.", no line that begins with ERROR, and not the
echo line "WARNING - Problems finding start of data in .12da file". The logs of all others are listed,
echo each with the line that tells why.
echo.
echo ERRORLEVEL is 0 when all runs are well, 1 when one is not, 2 when nothing was run.
exit /b 2
