; The installer: for one user, without an administrator's rights, by itself or beside a host.
;
; /S asks nothing; /D=FOLDER says where, without quotes and as the last one. /SENDTO=1 adds the entries of "Send to",
; /FAVOURITES=0 and /TOOLS=0 leave the sample favourites and the script tools out.
;
; makensis -DVERSION=... -DLISTS=FOLDER -DICON=FILE -DKILOBYTES=... -DOUT=FILE, where LISTS has what to install.
Target amd64-unicode
Unicode true
ManifestDPIAware true
RequestExecutionLevel user
SetCompressor /SOLID lzma
SetDateSave on
AllowSkipFiles off

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include WordFunc.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define HOST_KEY "Software\Marrowby\Kiv\Main001\Settings"
!define OWN_FOLDER "Command\Ferry"
!define LIST "${OWN_FOLDER}\Installed.txt"

Name "Ferry ${VERSION}"
OutFile "${OUT}"
; The separator at the end keeps the name of a folder that a person chooses as it is.
InstallDir "$LOCALAPPDATA\Programs\Ferry\"
BrandingText " "
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=0 "ProductName" "Ferry"
VIAddVersionKey /LANG=0 "FileDescription" "Ferry ${VERSION} Setup"
VIAddVersionKey /LANG=0 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "LegalCopyright" ""

Var Root       ; the folder that has Command and Lang, without a separator at the end
Var List       ; the list of what is installed, open for writing
Var OldList    ; a copy of the list of the installation that is there
Var Favourites ; the favourites folder of the user
Var IsUpgrade  ; 1 where an earlier installation is replaced
Var BesideHost ; 1 where a host has its commands

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC
!define MUI_PAGE_CUSTOMFUNCTION_SHOW .onVerifyInstDir
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE SettleFolder
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE Japanese

!include texts.nsh
!include folders.nsh
!include installed.nsh

Section "Ferry" SectionFerry
    SectionIn RO
    StrCpy $Root $INSTDIR
    Call AwaitEnds
    Call TakeOldListAway
    Call OpenList
    !include "${LISTS}\program.nsh"
    !include "${LISTS}\texts.nsh"
    !include "${LISTS}\readme.nsh"
    !insertmacro Note "file$\t${OWN_FOLDER}\Uninstall.exe"
    WriteUninstaller "$Root\${OWN_FOLDER}\Uninstall.exe"
    Call Register
    Call ChooseLanguage
SectionEnd

Section "$(FavouritesName)" SectionFavourites
    Call FindFavourites
    ${If} $LANGUAGE == ${LANG_JAPANESE}
        !include "${LISTS}\favourites-ja-JP.nsh"
    ${Else}
        !include "${LISTS}\favourites-en-US.nsh"
    ${EndIf}
SectionEnd

Section "$(ToolsName)" SectionTools
    !include "${LISTS}\tools.nsh"
SectionEnd

Section /o "$(SendToName)" SectionSendTo
    !insertmacro Note "sendto"
    ExecWait '"$Root\${OWN_FOLDER}\FerryOpen.exe" /quiet /sendto install' $0
    ${If} $0 != 0
        DetailPrint "$(SendToFailed)"
    ${EndIf}
SectionEnd

Section "-end"
    FileClose $List
    SetOutPath $TEMP
    ${If} $IsUpgrade == 1
        Call RemoveListedFolders
    ${EndIf}
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionFerry} "$(FerryHelp)"
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionFavourites} "$(FavouritesHelp)"
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionTools} "$(ToolsHelp)"
    !insertmacro MUI_DESCRIPTION_TEXT ${SectionSendTo} "$(SendToHelp)"
!insertmacro MUI_FUNCTION_DESCRIPTION_END

!macro SectionByOption option section
    ${GetOptions} $CMDLINE "/${option}=" $0
    ${IfNot} ${Errors}
        ${If} $0 == 0
            !insertmacro UnselectSection ${section}
        ${Else}
            !insertmacro SelectSection ${section}
        ${EndIf}
    ${EndIf}
    ClearErrors
!macroend

Function .onInit
    InitPluginsDir
    Call TrimFolder
    ${If} $INSTDIR == "$LOCALAPPDATA\Programs\Ferry"
        Call FindEarlier
    ${EndIf}
    Call ChooseSections
FunctionEnd

; ChooseSections: where an earlier installation is, its user has or has thrown away the favourites.
Function ChooseSections
    ${If} ${FileExists} "$INSTDIR\${LIST}"
        !insertmacro UnselectSection ${SectionFavourites}
    ${EndIf}
    !insertmacro SectionByOption FAVOURITES ${SectionFavourites}
    !insertmacro SectionByOption TOOLS ${SectionTools}
    !insertmacro SectionByOption SENDTO ${SectionSendTo}
FunctionEnd

Section "Uninstall"
    ; The uninstaller lies in the folder of the program.
    ${GetParent} $INSTDIR $Root
    ${GetParent} $Root $Root
    StrCpy $OldList "$PLUGINSDIR\old.txt"
    ${IfNot} ${FileExists} "$Root\${LIST}"
        MessageBox MB_OK|MB_ICONSTOP "$(NoList)" /SD IDOK
        SetErrorLevel 2
        Abort
    ${EndIf}
    Call un.AwaitEnds
    SetOutPath $TEMP
    CopyFiles /SILENT "$Root\${LIST}" $OldList
    Call un.RemoveFavourites
    Call un.RemoveListedFiles
    Delete "$Root\${LIST}"
    Call un.RemoveListedFolders
    Call un.NameKey
    DeleteRegKey HKCU "${UNINSTALL_KEY}\$0"
SectionEnd

Function un.onInit
    InitPluginsDir
FunctionEnd
