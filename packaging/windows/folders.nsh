; Where to install: by itself, or beside a host, which is a folder that has a folder Command.

; EndsWith: whether $INSTDIR ends with $0; then it is cut off.
!macro CutEnd text
    StrLen $1 "${text}"
    StrCpy $2 $INSTDIR "" -$1
    ${If} $2 == "${text}"
        StrCpy $INSTDIR $INSTDIR -$1
    ${EndIf}
!macroend

; TrimFolder: whoever chose the folder of the commands, or Ferry's own, meant the one that has them.
Function TrimFolder
    !insertmacro CutEnd "\"
    !insertmacro CutEnd "\Command\Ferry"
    !insertmacro CutEnd "\Command"
    Call LookForHost
FunctionEnd

Function LookForHost
    StrCpy $BesideHost 0
    ${If} ${FileExists} "$INSTDIR\Command\*.*"
        ; A folder that has nothing but Ferry there is an installation of its own.
        FindFirst $0 $1 "$INSTDIR\Command\*.*"
        ${DoWhile} $1 != ""
            ${If} $1 != "."
            ${AndIf} $1 != ".."
            ${AndIf} $1 != "Ferry"
                StrCpy $BesideHost 1
            ${EndIf}
            FindNext $0 $1
        ${Loop}
        FindClose $0
        ${IfNot} ${FileExists} "$INSTDIR\Command\Ferry\*.*"
            StrCpy $BesideHost 1
        ${EndIf}
    ${EndIf}
FunctionEnd

; FindEarlier: the folder of an installation that the system lists becomes the one that is offered.
Function FindEarlier
    StrCpy $0 0
    ${Do}
        EnumRegKey $1 HKCU "${UNINSTALL_KEY}" $0
        ${If} $1 == ""
            Return
        ${EndIf}
        StrCpy $2 $1 7
        ${If} $2 == "Ferry ("
            ReadRegStr $3 HKCU "${UNINSTALL_KEY}\$1" "InstallLocation"
            ${If} ${FileExists} "$3\${LIST}"
                StrCpy $INSTDIR $3
                Call LookForHost
                Return
            ${EndIf}
        ${EndIf}
        IntOp $0 $0 + 1
    ${Loop}
FunctionEnd

; The page says what the folder would be used for while a person types.
Function .onVerifyInstDir
    StrCpy $9 $INSTDIR
    Call TrimFolder
    ${If} $BesideHost == 1
        SendMessage $mui.DirectoryPage.Text ${WM_SETTEXT} 0 "STR:$(BesideHostHelp)"
    ${Else}
        SendMessage $mui.DirectoryPage.Text ${WM_SETTEXT} 0 "STR:$(ByItselfHelp)"
    ${EndIf}
    StrCpy $INSTDIR $9
FunctionEnd

; SettleFolder: among other things Ferry gets a folder of its own, but beside the commands of a host.
Function SettleFolder
    Call TrimFolder
    ${If} $BesideHost == 0
    ${AndIfNot} ${FileExists} "$INSTDIR\${LIST}"
        ${DirState} $INSTDIR $0
        ${If} $0 == 1
            StrCpy $INSTDIR "$INSTDIR\Ferry"
            Call LookForHost
        ${EndIf}
    ${EndIf}
    Call ChooseSections
FunctionEnd

; FindFavourites: where Ferry looks for the favourites of the user.
Function FindFavourites
    ClearErrors
    ReadRegDWORD $0 HKCU "${HOST_KEY}" "UserDirMode"
    ${If} ${Errors}
        StrCpy $0 0
    ${EndIf}
    ${If} $0 == 0
        StrCpy $Favourites "$LOCALAPPDATA\Kiv"
    ${ElseIf} $0 == 2
        ReadRegStr $Favourites HKCU "${HOST_KEY}" "UserDir"
        StrCpy $1 $Favourites 1 -1
        ${If} $1 == "\"
        ${OrIf} $1 == "/"
            StrCpy $Favourites $Favourites -1
        ${EndIf}
    ${Else}
        System::Call 'advapi32::GetUserNameW(w .r1, *i ${NSIS_MAX_STRLEN} r2)'
        StrCpy $Favourites "$Root\Ubar\$1"
        ${If} $1 == ""
            StrCpy $Favourites "$Root\Ubar"
        ${EndIf}
    ${EndIf}
    StrCpy $Favourites "$Favourites\Bar\Favorite"
FunctionEnd
