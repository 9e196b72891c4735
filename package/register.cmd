@echo off
rem Registers what cvcli needs on this machine: the proxy/stub library
rem CorvanePS.dll, through which cvcli talks to a Corvane service, local or
rem remote (cvcli -m). "register.cmd /simulator" also registers the simulator
rem corvane-sim.exe as the local Corvane service, to try cvcli offline. Never
rem use /simulator on a host where the real service is installed: the
rem simulator would take over the service's classes. Run from an elevated
rem command prompt. Exit status 0 when everything was registered, 1 when a
rem step failed (the message says which), 2 for an unknown switch.
setlocal
set "here=%~dp0"
set simulator=
if /i "%~1"=="/simulator" set simulator=yes
if not "%~1"=="" if not defined simulator goto usage

regsvr32 /s "%here%CorvanePS.dll"
set status=%errorlevel%
if not "%status%"=="0" goto proxyfailed
echo Registered the proxy/stub library %here%CorvanePS.dll
if not defined simulator goto done

"%here%corvane-sim.exe" /regserver
set status=%errorlevel%
if not "%status%"=="0" goto simfailed
echo Registered the simulator %here%corvane-sim.exe as the local Corvane service
echo It plays %here%scenario.json, or the file that CORVANE_SIM_SCENARIO names
:done
exit /b 0

:usage
echo Usage: register.cmd [/simulator]
echo Registers CorvanePS.dll; with /simulator also corvane-sim.exe as the local Corvane service.
exit /b 2

:proxyfailed
echo Registering the proxy/stub library %here%CorvanePS.dll failed: regsvr32 ended with status %status%.
if "%status%"=="3" echo The file could not be loaded: it is missing or damaged.
if "%status%"=="4" echo The file is not a registrable library: it is damaged or not the one of this release.
if "%status%"=="5" echo The library refused to register: this usually means that the command prompt is not elevated (Run as administrator).
exit /b 1

:simfailed
echo Registering the simulator %here%corvane-sim.exe failed with status %status%; the line above, if any, says why.
echo Registration writes to HKEY_CLASSES_ROOT: run this script from an elevated command prompt.
echo The proxy/stub library stays registered; unregister.cmd removes it.
exit /b 1
