; What was installed is written into a list, a line each, its fields parted by tabs:
;   file PATH        below the folder of the installation
;   folder PATH      made by the installer, whole path
;   sample PATH      where the next favourite was copied from, below the folder of the installation
;   favourite PATH   a sample favourite among those of the user, whole path
;   sendto           the entries of "Send to" were added
; A newer installer removes the files of that list before it installs its own, and the uninstaller removes all of it.

!macro Note line
    FileWriteUTF16LE $List "${line}$\r$\n"
!macroend

!macro IntoFolder folder
    Push "$Root\${folder}"
    Call EnsureFolder
    SetOutPath "$Root\${folder}"
!macroend

!macro InstallFile source folder name
    !insertmacro Note "file$\t${folder}\${name}"
    File "/oname=${name}" "${source}"
!macroend

; The message texts of a host are its own.
!macro InstallIfMissing source folder name
    ${IfNot} ${FileExists} "$Root\${folder}\${name}"
        !insertmacro InstallFile "${source}" "${folder}" "${name}"
    ${EndIf}
!macroend

; What the user has under this name stays as it is.
!macro InstallFavourite sample folder name
    ${IfNot} ${FileExists} "$Favourites${name}"
        Push "$Favourites${folder}"
        Call EnsureFolder
        !insertmacro Note "sample$\t${sample}"
        !insertmacro Note "favourite$\t$Favourites${name}"
        CopyFiles /SILENT "$Root\${sample}" "$Favourites${name}"
    ${EndIf}
!macroend

; EnsureFolder: makes the folder on the stack with its parents, and notes those that were missing.
Function EnsureFolder
    Exch $R0
    Push $R1
    StrLen $R1 $R0
    ${If} $R1 > 3
    ${AndIfNot} ${FileExists} "$R0\*.*"
        ${GetParent} $R0 $R1
        Push $R1
        Call EnsureFolder
        CreateDirectory $R0
        !insertmacro Note "folder$\t$R0"
    ${EndIf}
    Pop $R1
    Pop $R0
FunctionEnd

; TakeOldListAway: removes the files of an earlier installation and leaves in new.txt what stays of its list.
Function TakeOldListAway
    StrCpy $OldList "$PLUGINSDIR\old.txt"
    StrCpy $IsUpgrade 0
    FileOpen $List "$PLUGINSDIR\new.txt" w
    FileWriteUTF16LE /BOM $List ""
    ${If} ${FileExists} "$Root\${LIST}"
        StrCpy $IsUpgrade 1
        CopyFiles /SILENT "$Root\${LIST}" $OldList
        Call RemoveListedFiles
        Call CarryOver
    ${EndIf}
FunctionEnd

; CarryOver: whatever is no file of the installation itself stays listed.
Function CarryOver
    FileOpen $7 $OldList r
    ${Do}
        Call ReadEntry
        ${If} $0 == end
            ${ExitDo}
        ${ElseIf} $0 == sendto
            !insertmacro Note "sendto"
        ${ElseIf} $0 != file
            !insertmacro Note "$0$\t$1"
        ${EndIf}
    ${Loop}
    FileClose $7
FunctionEnd

; OpenList: the list goes where it stays as soon as there is a folder for it, so that an installation that breaks
; off can be removed, too.
Function OpenList
    Push "$Root\${OWN_FOLDER}"
    Call EnsureFolder
    FileClose $List
    CopyFiles /SILENT "$PLUGINSDIR\new.txt" "$Root\${LIST}"
    ClearErrors
    FileOpen $List "$Root\${LIST}" a
    ${If} ${Errors}
        MessageBox MB_OK|MB_ICONSTOP "$(CannotWrite)" /SD IDOK
        SetErrorLevel 2
        Abort
    ${EndIf}
    FileSeek $List 0 END
FunctionEnd

!macro Shared un
    ; ReadEntry: the next line of the list $7: its kind in $0, "end" behind the last one, and its path in $1.
    Function ${un}ReadEntry
        StrCpy $0 end
        StrCpy $1 ""
        ClearErrors
        FileReadUTF16LE $7 $2
        ${If} ${Errors}
            Return
        ${EndIf}
        ${Do}
            StrCpy $3 $2 1 -1
            ${If} $3 != "$\r"
            ${AndIf} $3 != "$\n"
                ${ExitDo}
            ${EndIf}
            StrCpy $2 $2 -1
        ${Loop}
        StrCpy $0 $2
        StrCpy $4 0
        ${Do}
            StrCpy $3 $2 1 $4
            ${If} $3 == ""
                Return
            ${EndIf}
            IntOp $5 $4 + 1
            ${If} $3 == "$\t"
                StrCpy $0 $2 $4
                StrCpy $1 $2 "" $5
                Return
            ${EndIf}
            StrCpy $4 $5
        ${Loop}
    FunctionEnd

    Function ${un}RemoveListedFiles
        FileOpen $7 $OldList r
        ${Do}
            Call ${un}ReadEntry
            ${If} $0 == end
                ${ExitDo}
            ${ElseIf} $0 == file
                Delete "$Root\$1"
            ${EndIf}
        ${Loop}
        FileClose $7
    FunctionEnd

    ; RemoveListedFolders: those that are empty by now, the inner ones first.
    Function ${un}RemoveListedFolders
        Push end
        FileOpen $7 $OldList r
        ${Do}
            Call ${un}ReadEntry
            ${If} $0 == end
                ${ExitDo}
            ${ElseIf} $0 == folder
                Push $1
            ${EndIf}
        ${Loop}
        FileClose $7
        ${Do}
            Pop $1
            ${If} $1 == end
                ${ExitDo}
            ${EndIf}
            RMDir $1
        ${Loop}
    FunctionEnd

    ; AwaitEnd: stops until the program $0 of the installation does not run, or ends the installer.
    Function ${un}AwaitEnd
        StrCpy $1 "$Root\${OWN_FOLDER}\$0"
        ${Do}
            ${IfNot} ${FileExists} $1
                Return
            ${EndIf}
            ClearErrors
            FileOpen $2 $1 a
            ${IfNot} ${Errors}
                FileClose $2
                Return
            ${EndIf}
            MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(IsRunning)" /SD IDCANCEL IDRETRY +3
            SetErrorLevel 2
            Abort
        ${Loop}
    FunctionEnd

    Function ${un}AwaitEnds
        StrCpy $0 "Ferry.exe"
        Call ${un}AwaitEnd
        StrCpy $0 "FerryOpen.exe"
        Call ${un}AwaitEnd
        StrCpy $0 "Tools\FerryTrace.exe"
        Call ${un}AwaitEnd
        StrCpy $0 "Tools\FerryScript.exe"
        Call ${un}AwaitEnd
    FunctionEnd

    ; NameKey: the name in $0 under which the system lists this installation; each folder has its own.
    Function ${un}NameKey
        ${WordReplace} $Root "\" "/" "+" $0
        StrCpy $0 "Ferry ($0)"
    FunctionEnd
!macroend

!insertmacro Shared ""
!insertmacro Shared "un."

; IsSame: whether the files $1 and $2 hold the same bytes: "same" or "other" in $0.
Function un.IsSame
    StrCpy $0 other
    ClearErrors
    FileOpen $3 $1 r
    FileOpen $4 $2 r
    ${IfNot} ${Errors}
        ${Do}
            StrCpy $5 end
            StrCpy $6 end
            FileReadByte $3 $5
            FileReadByte $4 $6
            ${If} $5 != $6
                ${ExitDo}
            ${EndIf}
            ${If} ${Errors}
                StrCpy $0 same
                ${ExitDo}
            ${EndIf}
        ${Loop}
    ${EndIf}
    FileClose $3
    FileClose $4
FunctionEnd

; RemoveFavourites: those that are still what they were copied from, and the entries of "Send to". This comes
; before the samples and the launcher go.
Function un.RemoveFavourites
    FileOpen $7 $OldList r
    ${Do}
        Call un.ReadEntry
        ${If} $0 == end
            ${ExitDo}
        ${ElseIf} $0 == sendto
            ExecWait '"$Root\${OWN_FOLDER}\FerryOpen.exe" /quiet /sendto remove'
        ${ElseIf} $0 == sample
            StrCpy $8 "$Root\$1"
        ${ElseIf} $0 == favourite
            StrCpy $2 $1
            StrCpy $1 $8
            StrCpy $9 $2
            Call un.IsSame
            ${If} $0 == same
                Delete $9
            ${EndIf}
            StrCpy $0 ""
        ${EndIf}
    ${Loop}
    FileClose $7
FunctionEnd

; Register: how the system's list of programs shows and removes this installation.
Function Register
    Call NameKey
    StrCpy $0 "${UNINSTALL_KEY}\$0"
    StrCpy $1 "$Root\${OWN_FOLDER}"
    ${If} $BesideHost == 1
        WriteRegStr HKCU $0 "DisplayName" "Ferry ($Root)"
    ${Else}
        WriteRegStr HKCU $0 "DisplayName" "Ferry"
    ${EndIf}
    WriteRegStr HKCU $0 "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU $0 "DisplayIcon" "$1\Ferry.exe"
    WriteRegStr HKCU $0 "InstallLocation" "$Root"
    WriteRegStr HKCU $0 "UninstallString" '"$1\Uninstall.exe"'
    WriteRegStr HKCU $0 "QuietUninstallString" '"$1\Uninstall.exe" /S'
    WriteRegDWORD HKCU $0 "EstimatedSize" ${KILOBYTES}
    WriteRegDWORD HKCU $0 "NoModify" 1
    WriteRegDWORD HKCU $0 "NoRepair" 1
FunctionEnd

; ChooseLanguage: without a host nobody has said which language Ferry speaks, and it would be Japanese.
Function ChooseLanguage
    ReadRegStr $0 HKCU "${HOST_KEY}" "NLS"
    ${If} $0 == ""
    ${AndIf} $BesideHost == 0
    ${AndIf} $LANGUAGE != ${LANG_JAPANESE}
        WriteRegStr HKCU "${HOST_KEY}" "NLS" ".en-US"
    ${EndIf}
FunctionEnd
