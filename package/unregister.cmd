@echo off
rem Removes what register.cmd registered: the proxy/stub library CorvanePS.dll,
rem and with /simulator the simulator's service classes first. Use /simulator
rem only where "register.cmd /simulator" was run: on a host with the real
rem service it would delete the real service's classes. Run from an elevated
rem command prompt. Exit status 0 when everything was removed, 1 when a step
rem failed (the message says which), 2 for an unknown switch.
setlocal
set "here=%~dp0"
set simulator=
set failed=
if /i "%~1"=="/simulator" set simulator=yes
if not "%~1"=="" if not defined simulator goto usage
if not defined simulator goto proxy

"%here%corvane-sim.exe" /unregserver
set status=%errorlevel%
if not "%status%"=="0" goto simfailed
echo Unregistered the simulator %here%corvane-sim.exe
goto proxy
:simfailed
echo Unregistering the simulator %here%corvane-sim.exe failed with status %status%; the line above, if any, says why.
set failed=yes

:proxy
regsvr32 /s /u "%here%CorvanePS.dll"
set status=%errorlevel%
if not "%status%"=="0" goto proxyfailed
echo Unregistered the proxy/stub library %here%CorvanePS.dll
goto end
:proxyfailed
echo Unregistering the proxy/stub library %here%CorvanePS.dll failed: regsvr32 ended with status %status%.
if "%status%"=="3" echo The file could not be loaded: it is missing or damaged.
if "%status%"=="5" echo The library refused to unregister: this usually means that the command prompt is not elevated (Run as administrator).
set failed=yes

:end
if defined failed echo Something stayed registered: see the lines above.
if defined failed exit /b 1
exit /b 0

:usage
echo Usage: unregister.cmd [/simulator]
echo Unregisters CorvanePS.dll; with /simulator first the simulator's service classes.
exit /b 2
