<#
.SYNOPSIS
Prepares what docs/windows-checklist.md needs on a Windows 10 or 11 machine, and removes it again.

.DESCRIPTION
Run it in Windows PowerShell as the user who goes through the list, not as administrator:

    powershell -ExecutionPolicy Bypass -File windows-checklist.ps1
    powershell -ExecutionPolicy Bypass -File windows-checklist.ps1 -Remove

What needs an administrator (a share, a virtual disk, a folder in "Program Files") is done by a second PowerShell, for
which Windows asks. Refuse, and all else is prepared; the script then says which items of the list are left out.

.PARAMETER Where
The folder that holds everything. It is made here; a folder that this script did not make is never removed.

.PARAMETER Remove
Removes the folder, the drives, the share and the disk, and puts Ferry's settings back.

.PARAMETER Stick
The drive letter that plays a stick: a folder, mapped by subst. Removing the mapping is pulling the stick.

.PARAMETER Network
The drive letter of the mapped share.

.PARAMETER Disk
The drive letter of the virtual disk (FAT32, 1 GB).

.PARAMETER NoBigFile
Leaves out the file of 4 GB.
#>
[CmdletBinding()]
param(
    [string]$Where = (Join-Path $env:SystemDrive 'FerryCheck'),
    [switch]$Remove,
    [ValidatePattern('^[A-Za-z]$')][string]$Stick = 'S',
    [ValidatePattern('^[A-Za-z]$')][string]$Network = 'T',
    [ValidatePattern('^[A-Za-z]$')][string]$Disk = 'V',
    [switch]$NoBigFile,
    # For the second PowerShell alone: who shall be able to write to the share.
    [string]$ElevatedFor = ''
)

Set-StrictMode -Version 2.0
$ErrorActionPreference = 'Stop'

$Where = [IO.Path]::GetFullPath($Where).TrimEnd('\')
$mark = Join-Path $Where 'made-by-windows-checklist.txt'
$settingsFile = Join-Path $Where 'settings-before.reg'
$settingsKey = 'HKCU\Software\Marrowby\KIV\Command\Ferry'
$diskFile = Join-Path $Where 'disk.vhdx'
$protected = Join-Path $env:ProgramFiles 'FerryCheck'
$shareName = 'FerryCheck'
$share = "\\localhost\$shareName"

# Names outside of ASCII, by their code points, so that this file means the same in every code page.
function Get-Text([int[]]$CodePoints) { return -join ($CodePoints | ForEach-Object { [char]$_ }) }
$japanese = Get-Text 0x65E5, 0x672C, 0x8A9E                       # "Japanese"
$file = Get-Text 0x30D5, 0x30A1, 0x30A4, 0x30EB                   # "file"
$voiced = Get-Text 0x30AB, 0x3099                                 # GA as KA and a combining mark
$accented = Get-Text 0x00E9                                       # e with an acute accent
$cyrillic = Get-Text 0x0416                                       # ZHE

$leftOut = New-Object System.Collections.Generic.List[string]
function Say([string]$Text) { Write-Host "   $Text" }
function Skip([string]$What, [string]$Why) {
    $leftOut.Add($What)
    Write-Host "   LEFT OUT: $What. $Why" -ForegroundColor Yellow
}

# A command of Windows; whether it succeeded. Its output is shown only when it did not.
function Test-Command([string]$Line) {
    $output = cmd.exe /d /s /c "$Line 2>&1"
    $succeeded = $LASTEXITCODE -eq 0
    if (-not $succeeded -and $output) { $output | ForEach-Object { Write-Verbose "$_" } }
    return $succeeded
}

function Test-Administrator {
    $me = New-Object Security.Principal.WindowsPrincipal([Security.Principal.WindowsIdentity]::GetCurrent())
    return $me.IsInRole([Security.Principal.WindowsBuiltInRole]::Administrator)
}

function Test-DriveFree([string]$Letter) {
    return -not ([IO.DriveInfo]::GetDrives() | Where-Object { $_.Name -eq ($Letter + ':\') })
}

# Whether the letters lead here; they may be somebody else's.
function Test-Stick {
    $line = "^${Stick}:.*" + [regex]::Escape("$Where\stick")
    return [bool](cmd.exe /d /s /c "subst.exe 2>&1" | Where-Object { $_ -match $line })
}
function Test-Network {
    $line = "\b${Network}:\s.*" + [regex]::Escape($share)
    return [bool](cmd.exe /d /s /c "net.exe use 2>&1" | Where-Object { $_ -match $line })
}

function New-Folder([string]$Path) { [void][IO.Directory]::CreateDirectory($Path) }

function New-File([string]$Path, [string]$Content) {
    New-Folder ([IO.Path]::GetDirectoryName($Path))
    [IO.File]::WriteAllText($Path, $Content)
}

# Whether what is at $Where may be removed: this script made it.
function Assert-Own {
    if ((Test-Path -LiteralPath $Where) -and -not (Test-Path -LiteralPath $mark)) {
        throw "$Where exists and was not made by this script; choose another folder with -Where."
    }
}

# Runs this script once more as administrator. False when the person refused, or it failed.
function Invoke-Elevated {
    $self = $PSCommandPath
    $arguments = "-NoProfile -ExecutionPolicy Bypass -File `"$self`" -Where `"$Where`" -Disk $Disk" +
        " -ElevatedFor `"$env:USERDOMAIN\$env:USERNAME`""
    if ($Remove) { $arguments += ' -Remove' }
    try {
        $process = Start-Process powershell.exe -ArgumentList $arguments -Verb RunAs -PassThru -Wait
        return $process.ExitCode -eq 0
    } catch {
        return $false
    }
}

# ---- The part of the administrator -------------------------------------------------------------------------------

function Invoke-DiskPart([string[]]$Commands) {
    $script = [IO.Path]::GetTempFileName()
    [IO.File]::WriteAllLines($script, $Commands)
    $succeeded = Test-Command "diskpart.exe /s `"$script`""
    Remove-Item -LiteralPath $script
    return $succeeded
}

# A disk that is there already is only attached, as after a restart.
function Add-Disk {
    if (-not (Test-DriveFree $Disk)) { return Test-Path -LiteralPath $diskFile }
    $select = "select vdisk file=`"$diskFile`""
    if (Test-Path -LiteralPath $diskFile) { return Invoke-DiskPart @($select, 'attach vdisk') }
    return Invoke-DiskPart @("create vdisk file=`"$diskFile`" maximum=1024 type=expandable", $select, 'attach vdisk',
        'create partition primary', 'format fs=fat32 label=FERRYCHECK quick', "assign letter=$Disk")
}

# 0 when everything is there.
function Add-Elevated {
    New-Folder $protected
    $isShared = (Test-Command "net.exe share $shareName") -or
        (Test-Command "net.exe share $shareName=`"$Where\share`" `"/grant:$ElevatedFor,FULL`"")
    $hasDisk = Add-Disk
    if ($isShared -and $hasDisk) { return 0 }
    return 1
}

function Remove-Elevated {
    if (Test-Path -LiteralPath $protected) { Remove-Item -LiteralPath $protected -Recurse -Force }
    $removed = $true
    if (Test-Command "net.exe share $shareName") {
        $removed = Test-Command "net.exe share $shareName /delete /y"
    }
    if (Test-Path -LiteralPath $diskFile) {
        # One that is not attached any more, as after a restart, makes this fail; the file goes all the same.
        [void](Invoke-DiskPart @("select vdisk file=`"$diskFile`"", 'detach vdisk'))
        Remove-Item -LiteralPath $diskFile -Force
    }
    if ($removed) { return 0 }
    return 1
}

# ---- The part of the user ----------------------------------------------------------------------------------------

function Add-Plain {
    $plain = Join-Path $Where 'plain'
    foreach ($name in 'a.txt', 'b.txt', '-dash.txt', '_line.txt', '(1).txt', "$accented.txt", "$cyrillic.txt",
        "$japanese.txt", "$voiced.txt") {
        New-File (Join-Path $plain $name) $name
    }
    New-File "$plain\sub\$file.txt" 'in a folder'
    New-Folder "$Where\to"
    # Two files of each name, for the questions.
    foreach ($name in 'one.txt', 'two.txt', "$file.txt") {
        New-File "$Where\same\$name" 'new'
        New-File "$Where\to-same\$name" 'old'
        [IO.File]::SetLastWriteTimeUtc("$Where\to-same\$name", [DateTime]::UtcNow.AddDays(-1))
    }
    Say "plain, to, same, to-same: names of every kind, and names that exist at the destination"
}

function Add-Many {
    New-Folder "$Where\many"
    for ($number = 1; $number -le 2000; ++$number) {
        [IO.File]::WriteAllText(('{0}\many\{1:d4}.txt' -f $Where, $number), "$number")
    }
    New-Folder "$Where\programs"
    $program = Join-Path $env:SystemRoot 'System32\where.exe'
    for ($number = 1; $number -le 40; ++$number) {
        [IO.File]::Copy($program, ('{0}\programs\{1:d2}.exe' -f $Where, $number), $true)
    }
    $list = New-Object System.Collections.Generic.List[string]
    for ($number = 1; $number -le 100000; ++$number) {
        $list.Add(('{0}\many\{1:d6} {2}.txt' -f $Where, $number, $japanese))
    }
    [IO.File]::WriteAllLines("$Where\list.txt", $list)
    Say 'many: 2,000 files; programs: 40 programs with icons; list.txt: 100,000 names for the sample host'
}

# A destination of 220 units, and sources of which the folders come out at 250 and at 266 there.
function Add-Long {
    $far = Join-Path $Where 'far'
    $room = 220 - $far.Length - 1
    if ($room -lt 1) { Skip 'long paths' "The folder $Where has too long a name."; return }
    $far = Join-Path $far ('x' * $room)
    New-Folder $far
    $depth = $far.Length + '\long\'.Length
    foreach ($length in 250, 266) {
        $name = ("f$length-" + ('y' * 60)).Substring(0, $length - $depth)
        New-File "$Where\long\$name\a.txt" "folder of $length units"
    }
    New-File "$Where\long\short.txt" 'short'
    [IO.File]::WriteAllText("$Where\far.txt", $far)
    Say 'long: folders that come out at 250 and 266 units below the destination that far.txt names'
}

function Add-Big {
    $path = "$Where\big\4 GB.bin"
    $free = (New-Object IO.DriveInfo($Where.Substring(0, 1))).AvailableFreeSpace
    if ($NoBigFile) { Skip 'the file of 4 GB' 'It was not wanted.'; return }
    if (Test-Path -LiteralPath $path) { Say 'big: one file of 4 GB'; return }
    if ($free -lt 12gb) { Skip 'the file of 4 GB' 'The drive has less than 12 GB left.'; return }
    New-Folder "$Where\big"
    $stream = [IO.File]::Create($path)
    $stream.SetLength(4gb + 1)
    $stream.Close()
    Say 'big: one file of 4 GB'
}

function Add-Share {
    New-File "$Where\share\~`$plan.docx" 'a name with a tilde'
    New-File "$Where\share\data~old\x.txt" 'in a folder with a tilde'
    New-File "$Where\share\$japanese\$file.txt" 'on the share'
    for ($number = 1; $number -le 200; ++$number) {
        New-File ('{0}\share\many\{1:d3}.bin' -f $Where, $number) ('z' * 500000)
    }
    New-Folder "$Where\share\to"
    Say 'share: names with a tilde, and 100 MB in 200 files'
}

function Add-Loop {
    New-File "$Where\loop\a.txt" 'once'
    $link = "$Where\loop\back"
    if (-not (Test-Path -LiteralPath $link)) {
        if (Test-Command "mklink /j `"$link`" `"$Where\loop`"") {
            Say 'loop: a folder with a junction that leads back to it'
        } else {
            Skip 'the junction' 'This file system has none.'
        }
    }
}

function Add-Drives {
    New-Folder "$Where\stick\backup"
    if (Test-Stick) {
        Say "${Stick}: the folder stick, as before"
    } elseif (-not (Test-DriveFree $Stick)) {
        Skip "the stick ${Stick}:" 'The letter is taken; choose another one with -Stick.'
    } elseif (Test-Command "subst.exe ${Stick}: `"$Where\stick`"") {
        Say "${Stick}: the folder stick; 'subst ${Stick}: /d' pulls it"
    } else {
        Skip "the stick ${Stick}:" 'subst failed; -Verbose says more.'
    }

    $isElevated = Invoke-Elevated
    if (Test-Path -LiteralPath $protected) {
        Say "${protected}: a folder that only an administrator may write to"
    } else {
        Skip $protected 'It needs an administrator.'
    }
    if ($isElevated -or ((Test-Path -LiteralPath $diskFile) -and -not (Test-DriveFree $Disk))) {
        Say "${Disk}: a virtual disk with FAT32"
    } else {
        Skip "the disk ${Disk}:" 'It needs an administrator and a free letter (-Disk); a real stick with FAT32 will do.'
    }

    if (-not (Test-Path -LiteralPath $share)) {
        Skip "the share $share" 'It needs an administrator; a folder on a share of another machine will do.'
        return
    }
    Say "${share}: the folder share"
    if (Test-Network) {
        Say "${Network}: the same share, mapped as before"
    } elseif (-not (Test-DriveFree $Network)) {
        Skip "the drive ${Network}:" 'The letter is taken; choose another one with -Network.'
    } elseif (Test-Command "net.exe use ${Network}: $share /persistent:no") {
        Say "${Network}: the same share, mapped"
    } else {
        Skip "the drive ${Network}:" 'net use failed; -Verbose says more.'
    }
}

function Save-Settings {
    if (Test-Path -LiteralPath $settingsFile) { return }
    if (Test-Command "reg.exe query `"$settingsKey`"") {
        [void](Test-Command "reg.exe export `"$settingsKey`" `"$settingsFile`" /y")
    }
}

function Restore-Settings {
    [void](Test-Command "reg.exe delete `"$settingsKey`" /f")
    if (Test-Path -LiteralPath $settingsFile) { [void](Test-Command "reg.exe import `"$settingsFile`"") }
}

function Add-All {
    Assert-Own
    Write-Host "Preparing $Where"
    New-File $mark 'This folder and all that is in it may be removed: windows-checklist.ps1 -Remove'
    Save-Settings
    Add-Plain
    Add-Many
    Add-Long
    Add-Big
    Add-Share
    Add-Loop
    Add-Drives
    if ($leftOut.Count -eq 0) {
        Write-Host 'Everything is ready.'
    } else {
        Write-Host "Ready, but for: $($leftOut -join '; ')." -ForegroundColor Yellow
    }
}

function Remove-All {
    Assert-Own
    if (-not (Test-Path -LiteralPath $mark)) { Write-Host "There is no $Where."; return }
    Write-Host "Removing $Where"
    if (Test-Stick) { [void](Test-Command "subst.exe ${Stick}: /d") }
    if (Test-Network) { [void](Test-Command "net.exe use ${Network}: /delete /y") }
    $needsAdministrator = (Test-Path -LiteralPath $protected) -or (Test-Path -LiteralPath $diskFile) -or
        (Test-Path -LiteralPath $share)
    if ($needsAdministrator -and -not (Invoke-Elevated)) {
        throw 'Only an administrator may remove the share, the disk and the folder in "Program Files". Run this again.'
    }
    Restore-Settings
    # In this form rd takes paths of any length; of a junction it takes the junction only.
    [void](Test-Command "rd /s /q `"\\?\$Where`"")
    if (Test-Path -LiteralPath $Where) { throw "$Where is still in use; close what uses it and run this again." }
    Write-Host 'All is gone, and the settings are as they were.'
}

if ($ElevatedFor) {
    if (-not (Test-Administrator)) { exit 2 }
    Assert-Own
    if ($Remove) { exit (Remove-Elevated) }
    exit (Add-Elevated)
}
if (Test-Administrator) {
    Write-Warning 'Programs without an administrator''s rights do not see these drives. Better run this without them.'
}
if ($Remove) { Remove-All } else { Add-All }
