@echo off
rem Registers the Corvane simulator on this machine: the proxy/stub library
rem CorvanePS.dll, which cvcli needs to talk to any Corvane service, and the
rem simulator corvane-sim.exe as the local service. Run it from an elevated
rem command prompt. "register.cmd /proxy" registers CorvanePS.dll alone, for a
rem host that uses a real service on another machine (cvcli -m).
setlocal
set here=%~dp0
regsvr32 /s "%here%CorvanePS.dll"
if errorlevel 1 goto proxyfailed
if /i "%~1"=="/proxy" goto done
"%here%corvane-sim.exe" /regserver
if errorlevel 1 goto simfailed
:done
echo Registered from %here%
exit /b 0
:proxyfailed
echo Registering CorvanePS.dll failed: run this script as an administrator.
exit /b 1
:simfailed
echo Registering corvane-sim.exe failed: run this script as an administrator.
exit /b 1
