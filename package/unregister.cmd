@echo off
rem Removes what register.cmd registered. Run it from an elevated command prompt.
setlocal
set here=%~dp0
"%here%corvane-sim.exe" /unregserver
regsvr32 /s /u "%here%CorvanePS.dll"
echo Unregistered
exit /b 0
