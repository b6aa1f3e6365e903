@start "" "%~dp0x86\WorkbenchHost.exe" --company "%~dp0sample.db"
