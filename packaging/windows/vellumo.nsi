; The installer of Vellumo for one person, without an administrator's rights: packaging/windows/package calls makensis
; with VERSION, STAGE (the folder with what is installed), OUTPUT, ICON, and QUICK where the size doesn't matter.
;
; The program's folder is the person's first working directory, so tests and reports of the person's own lie in it.
; Every file but the two programs is listed in contents.txt with its sum. Installing over an earlier version and
; uninstalling touch only files that are still as the list there says.
;
; Silent: /S, with the folder as the last argument /D=FOLDER (unquoted). Exit codes: 0 done, 1 cancelled, 2 not done.

Target amd64-unicode
Unicode true
!ifdef QUICK
    SetCompressor zlib
!else
    SetCompressor /SOLID lzma
!endif
RequestExecutionLevel user
ManifestDPIAware true
ManifestSupportedOS Win10

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include WinVer.nsh

!define PROGID "Vellumo.Test"
!define CLASSES "Software\Classes"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Vellumo"
!define LIST "contents.txt"
; Everything is unpacked into this folder first: a full disk or an error leaves the earlier version as it was.
!define INCOMING "vellumo-setup.tmp"

Name "Vellumo"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Vellumo"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"
BrandingText "Vellumo ${VERSION}"
ShowInstDetails hide
ShowUninstDetails hide
AllowSkipFiles off

VIProductVersion "${VERSION}.0.0"
VIFileVersion "${VERSION}.0.0"
VIAddVersionKey "ProductName" "Vellumo"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Vellumo Setup"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "CompanyName" "The Vellumo authors"
VIAddVersionKey "LegalCopyright" "The Vellumo authors; MIT licence"

Var FinishText
Var Earlier ; the folder that is registered as Vellumo's, "" for none
Var Kept    ; names of files that were left alone

!ifdef ICON
    !define MUI_ICON "${ICON}"
    !define MUI_UNICON "${ICON}"
!endif
!define MUI_WELCOMEFINISHPAGE_BITMAP "${__FILEDIR__}/side.bmp"
!define MUI_UNWELCOMEFINISHPAGE_BITMAP "${__FILEDIR__}/side.bmp"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC
!define MUI_FINISHPAGE_NOAUTOCLOSE
!define MUI_UNFINISHPAGE_NOAUTOCLOSE

!define MUI_COMPONENTSPAGE_TEXT_TOP "Vellumo is installed for you alone; no administrator is needed. It asks nothing of the Internet."
!insertmacro MUI_PAGE_COMPONENTS
!define MUI_DIRECTORYPAGE_TEXT_TOP "Tests and reports go to this folder too, unless you choose another working directory in Vellumo. \
    Choose a folder in which you may write."
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE LeaveDirectory
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_TITLE "Vellumo is installed"
!define MUI_FINISHPAGE_TEXT "$FinishText"
!define MUI_FINISHPAGE_RUN "$INSTDIR\vellumo.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Start Vellumo"
!insertmacro MUI_PAGE_FINISH

!define MUI_UNCONFIRMPAGE_TEXT_TOP "The programs, the help and the unchanged samples are removed. Your tests, reports and settings stay, \
    and so do samples and templates that you changed."
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!define MUI_FINISHPAGE_TITLE "Vellumo is removed"
!define MUI_FINISHPAGE_TEXT "$FinishText"
!insertmacro MUI_UNPAGE_FINISH

!insertmacro MUI_LANGUAGE "English"

LangString ^FileError ${LANG_ENGLISH} "This file can't be written:$\r$\n$\r$\n$0$\r$\n$\r$\nIs the disk full, or may you not write there?"
LangString ^FileError_NoIgnore ${LANG_ENGLISH} "This file can't be written:$\r$\n$\r$\n$0$\r$\n$\r$\nIs the disk full, or may you not write there? \
    Retry tries again; Cancel ends the installation, and an earlier version stays as it was."
LangString ^ErrorWriting ${LANG_ENGLISH} "The disk may be full. An earlier version stays as it was. This can't be written: "

; --- What both the installer and the uninstaller do -------------------------------------------------------------------

; $R0: a path. $R1 becomes the SHA-256 sum of the file in hexadecimal letters, "" when it can't be read.
!macro HashOfFile un
Function ${un}HashOfFile
    Push $0
    Push $1
    Push $2
    Push $3
    Push $4
    Push $5
    StrCpy $R1 ""
    ; Read only, and with others at work on it.
    System::Call 'kernel32::CreateFileW(w R0, i 0x80000000, i 7, p 0, i 3, i 0, p 0) p .r0'
    ${If} $0 P<> -1
        System::Call 'advapi32::CryptAcquireContextW(*p .r1, p 0, p 0, i 24, i 0xF0000000) i .r5' ; RSA_AES, VERIFYCONTEXT
        ${If} $5 <> 0
            System::Call 'advapi32::CryptCreateHash(p r1, i 0x800c, p 0, i 0, *p .r2) i .r5' ; CALG_SHA_256
            System::Alloc 65536
            Pop $3
            ${Do}
                System::Call 'kernel32::ReadFile(p r0, p r3, i 65536, *i .r4, p 0) i .r5'
                ${If} $5 = 0
                ${OrIf} $4 = 0
                    ${Break}
                ${EndIf}
                System::Call 'advapi32::CryptHashData(p r2, p r3, i r4, i 0) i .r5'
            ${LoopUntil} $5 = 0
            ${If} $5 <> 0
                System::Call 'advapi32::CryptGetHashParam(p r2, i 2, p r3, *i 32, i 0) i .r5' ; HP_HASHVAL
            ${EndIf}
            ${If} $5 <> 0
                StrCpy $5 0
                ${Do}
                    System::Call '*$3(&i1 .r4)'
                    IntOp $4 $4 & 0xff
                    IntFmt $4 "%02x" $4
                    StrCpy $R1 "$R1$4"
                    IntPtrOp $3 $3 + 1
                    IntOp $5 $5 + 1
                ${LoopUntil} $5 = 32
                IntPtrOp $3 $3 - 32
            ${EndIf}
            System::Free $3
            System::Call 'advapi32::CryptDestroyHash(p r2)'
            System::Call 'advapi32::CryptReleaseContext(p r1, i 0)'
        ${EndIf}
        System::Call 'kernel32::CloseHandle(p r0)'
    ${EndIf}
    Pop $5
    Pop $4
    Pop $3
    Pop $2
    Pop $1
    Pop $0
FunctionEnd
!macroend

; From the handle $9 of an open list: $R2 the sum, $R3 the path of the next line, "" at its end.
!macro NextOfList un
Function ${un}NextOfList
    StrCpy $R3 "" ; which it stays at the end
    FileRead $9 $R3
    StrCpy $R2 $R3 64
    StrCpy $R3 $R3 "" 66
    ${Do}
        StrCpy $R4 $R3 1 -1
        ${If} $R4 != "$\n"
        ${AndIf} $R4 != "$\r"
            ${Break}
        ${EndIf}
        StrCpy $R3 $R3 -1
    ${Loop}
    ClearErrors
FunctionEnd
!macroend

; Doesn't return while one of the programs runs, or ends the (un)installation with nothing touched.
!macro CheckNotRunning un
Function ${un}CheckNotRunning
    Push $0
    Push $1
    StrCpy $1 "vellumo.exe"
    ${Do}
        ${If} ${FileExists} "$INSTDIR\$1"
            ; Windows refuses to open the file of a running program for writing.
            SetFileAttributes "$INSTDIR\$1" NORMAL
            ClearErrors
            FileOpen $0 "$INSTDIR\$1" a
            ${If} ${Errors}
                ClearErrors
                MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Vellumo is running from this folder, or another program holds its file:$\r$\n$\r$\n\
                    $INSTDIR\$1$\r$\n$\r$\nFinish and save what you are doing there, close Vellumo, and choose Retry. \
                    Cancel leaves everything as it is." /SD IDCANCEL IDRETRY again
                SetErrorLevel 2
                DetailPrint "Vellumo is running: nothing was changed."
                Abort "Vellumo is running: nothing was changed."
            ${EndIf}
            FileClose $0
        ${EndIf}
        ${If} $1 == "vellumo-cli.exe"
            ${Break}
        ${EndIf}
        StrCpy $1 "vellumo-cli.exe"
    again:
    ${Loop}
    Pop $1
    Pop $0
FunctionEnd
!macroend

!insertmacro HashOfFile ""
!insertmacro HashOfFile "un."
!insertmacro NextOfList ""
!insertmacro NextOfList "un."
!insertmacro CheckNotRunning ""
!insertmacro CheckNotRunning "un."

!define TellTheShell `System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'` ; SHCNE_ASSOCCHANGED

; --- Installing -------------------------------------------------------------------------------------------------------

; Ends the installation before the earlier version was touched.
!macro GiveUp text
    SetOutPath "$TEMP"
    RMDir /r "$INSTDIR\${INCOMING}"
    RMDir "$INSTDIR"
    MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
    SetErrorLevel 2
    Abort "${text}"
!macroend

; Moves the unpacked file $R3 to its place: in one step, so that a file is never there in half.
Function MoveToItsPlace
    Push $0
    ${GetParent} "$INSTDIR\$R3" $0
    CreateDirectory "$0"
    ${Do}
        System::Call 'kernel32::MoveFileExW(w "$INSTDIR\${INCOMING}\$R3", w "$INSTDIR\$R3", i 9) i .r0' ; replace, write through
        ${If} $0 <> 0
            ${Break}
        ${EndIf}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "This file can't be replaced; perhaps another program has it open:$\r$\n$\r$\n\
            $INSTDIR\$R3$\r$\n$\r$\nCancel leaves it as it is and goes on with the other files." /SD IDCANCEL IDRETRY next
        StrCpy $Kept "$Kept$\r$\n$R3"
        DetailPrint "Couldn't be replaced: $R3"
        SetErrorLevel 2
        ${Break}
    next:
    ${Loop}
    Pop $0
FunctionEnd

; Is the line with sum $R1 and path $R3 in the list $R5? The answer in $R6 is 1 or 0; a sum "" asks for the path alone.
Function ListHolds
    Push $9
    Push $R2
    Push $R3
    Push $0
    StrCpy $0 $R3
    StrCpy $R6 0
    ClearErrors
    FileOpen $9 $R5 r
    ${Unless} ${Errors}
        ${Do}
            Call NextOfList
            ${If} $R3 == ""
                ${Break}
            ${EndIf}
            ${If} $R3 == $0
                ${If} $R1 == ""
                ${OrIf} $R1 == $R2
                    StrCpy $R6 1
                ${EndIf}
            ${EndIf}
        ${Loop}
        FileClose $9
    ${EndUnless}
    ClearErrors
    Pop $0
    Pop $R3
    Pop $R2
    Pop $9
FunctionEnd

; Moves every unpacked file of the list to its place, but leaves alone what is there and isn't as it was installed.
Function PlaceListedFiles
    FileOpen $9 "$INSTDIR\${INCOMING}\${LIST}" r
    ${Do}
        Call NextOfList
        ${If} $R3 == ""
            ${Break}
        ${EndIf}
        ${If} ${FileExists} "$INSTDIR\$R3"
            StrCpy $R0 "$INSTDIR\$R3"
            Call HashOfFile
            ${If} $R1 == $R2
                ${Continue}
            ${EndIf}
            StrCpy $R6 0
            ${If} $R1 != ""
                StrCpy $R5 "$INSTDIR\${LIST}"
                Call ListHolds
            ${EndIf}
            ${If} $R6 = 0
                StrCpy $Kept "$Kept$\r$\n$R3"
                DetailPrint "Changed by you, so left as it is: $R3"
                ${Continue}
            ${EndIf}
        ${EndIf}
        Call MoveToItsPlace
    ${Loop}
    FileClose $9
    ClearErrors
FunctionEnd

; Deletes the unchanged files of the earlier version that this one doesn't have any more.
Function RemoveDroppedFiles
    ClearErrors
    FileOpen $9 "$INSTDIR\${LIST}" r
    ${Unless} ${Errors}
        ${Do}
            Call NextOfList
            ${If} $R3 == ""
                ${Break}
            ${EndIf}
            StrCpy $R5 "$INSTDIR\${INCOMING}\${LIST}"
            StrCpy $R1 ""
            Call ListHolds
            ${If} $R6 = 0
                StrCpy $R0 "$INSTDIR\$R3"
                Call HashOfFile
                ${If} $R1 == $R2
                    Delete "$INSTDIR\$R3"
                ${EndIf}
            ${EndIf}
        ${Loop}
        FileClose $9
    ${EndUnless}
    ClearErrors
FunctionEnd

Section "Vellumo" SecProgram
    SectionIn RO
    Call CheckNotRunning

    ClearErrors
    CreateDirectory "$INSTDIR\${INCOMING}"
    FileOpen $0 "$INSTDIR\${INCOMING}\writable" w
    ${If} ${Errors}
        !insertmacro GiveUp "You may not write in this folder, or it can't be made:$\r$\n$\r$\n$INSTDIR$\r$\n$\r$\n\
            Nothing was installed. Please start again and choose another folder."
    ${EndIf}
    FileClose $0
    Delete "$INSTDIR\${INCOMING}\writable"

    SetOutPath "$INSTDIR\${INCOMING}"
    ClearErrors
    File /r "${STAGE}\*.*"
    WriteUninstaller "$INSTDIR\${INCOMING}\uninstall.exe"
    ${If} ${Errors}
        !insertmacro GiveUp "Not all files could be written; the disk may be full.$\r$\n$\r$\n\
            Nothing was installed, and an earlier version stays as it was."
    ${EndIf}
    SetOutPath "$INSTDIR"

    ; Vellumo may have been started meanwhile.
    Call CheckNotRunning
    StrCpy $Kept ""
    StrCpy $R3 "vellumo.exe"
    Call MoveToItsPlace
    StrCpy $R3 "vellumo-cli.exe"
    Call MoveToItsPlace
    StrCpy $R3 "uninstall.exe"
    Call MoveToItsPlace
    Call PlaceListedFiles
    Call RemoveDroppedFiles
    StrCpy $R3 "${LIST}"
    Call MoveToItsPlace
    RMDir /r "$INSTDIR\${INCOMING}"

    CreateShortcut "$SMPROGRAMS\Vellumo.lnk" "$INSTDIR\vellumo.exe" "" "$INSTDIR\vellumo.exe" 0 SW_SHOWNORMAL "" \
        "Write questionnaires, give them, and score them"

    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Vellumo"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "The Vellumo authors"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\vellumo.exe,0"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    SectionGetSize ${SecProgram} $0
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1

    StrCpy $FinishText "It is in the Start menu. The samples are in its folder:$\r$\n$INSTDIR"
    ${If} $Kept != ""
        StrCpy $FinishText "$FinishText$\r$\n$\r$\nThese files were changed since they were installed, or are in use, \
            and are as they were:$Kept"
    ${EndIf}
SectionEnd

Section "Open tests (.vlm) with Vellumo" SecAssociation
    WriteRegStr HKCU "${CLASSES}\${PROGID}" "" "Vellumo Test"
    WriteRegStr HKCU "${CLASSES}\${PROGID}\DefaultIcon" "" "$INSTDIR\vellumo.exe,0"
    WriteRegStr HKCU "${CLASSES}\${PROGID}\shell\open\command" "" '"$INSTDIR\vellumo.exe" "%1"'
    WriteRegStr HKCU "${CLASSES}\.vlm\OpenWithProgids" "${PROGID}" ""
    ReadRegStr $0 HKCU "${CLASSES}\.vlm" ""
    ReadRegStr $1 HKCU "${UNINSTALL_KEY}" "Association"
    ; Whoever had it before the first installation gets it back at the end. Whoever took it since then keeps it.
    ${If} $1 == ""
        ${If} $0 != "${PROGID}"
            WriteRegStr HKCU "${UNINSTALL_KEY}" "PreviousAssociation" $0
        ${EndIf}
        WriteRegStr HKCU "${UNINSTALL_KEY}" "Association" "${PROGID}"
        WriteRegStr HKCU "${CLASSES}\.vlm" "" "${PROGID}"
    ${ElseIf} $0 == ""
        WriteRegStr HKCU "${CLASSES}\.vlm" "" "${PROGID}"
    ${EndIf}
    ${TellTheShell}
SectionEnd

Section /o "Shortcut on the desktop" SecDesktop
    CreateShortcut "$DESKTOP\Vellumo.lnk" "$INSTDIR\vellumo.exe" "" "$INSTDIR\vellumo.exe" 0
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DesktopShortcut" "$DESKTOP\Vellumo.lnk"
SectionEnd

LangString TextProgram ${LANG_ENGLISH} "The programs, sample tests, templates and help, with an entry in the Start menu."
LangString TextAssociation ${LANG_ENGLISH} "A double click on a test begins it. Uninstalling gives back what was there before."
LangString TextDesktop ${LANG_ENGLISH} "A second way to start it."
!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${SecProgram} $(TextProgram)
    !insertmacro MUI_DESCRIPTION_TEXT ${SecAssociation} $(TextAssociation)
    !insertmacro MUI_DESCRIPTION_TEXT ${SecDesktop} $(TextDesktop)
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function .onInit
    ${IfNot} ${AtLeastWin10}
        MessageBox MB_OK|MB_ICONSTOP "Vellumo needs Windows 10 or later." /SD IDOK
        SetErrorLevel 2
        Quit
    ${EndIf}
    ReadRegStr $Earlier HKCU "${UNINSTALL_KEY}" "InstallLocation"
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "DesktopShortcut"
    ${If} $0 != ""
        !insertmacro SelectSection ${SecDesktop}
    ${EndIf}
FunctionEnd

Function LeaveDirectory
    ${If} $Earlier != ""
    ${AndIf} $Earlier != $INSTDIR
    ${AndIf} ${FileExists} "$Earlier\uninstall.exe"
        MessageBox MB_YESNO|MB_ICONQUESTION "Vellumo is already installed in another folder:$\r$\n$\r$\n$Earlier$\r$\n$\r$\n\
            It stays there, with your tests, until you start its uninstall.exe. The Start menu and tests will open the new \
            one. Install into the new folder?" IDYES go
        StrCpy $INSTDIR $Earlier
        Abort
    ${EndIf}
go:
FunctionEnd

Function .onInstFailed
    SetOutPath "$TEMP"
    RMDir /r "$INSTDIR\${INCOMING}"
    RMDir "$INSTDIR"
FunctionEnd

; --- Uninstalling -----------------------------------------------------------------------------------------------------

; Gives the association back, unless another program has it now.
Function un.GiveAssociationBack
    DeleteRegKey HKCU "${CLASSES}\${PROGID}"
    DeleteRegValue HKCU "${CLASSES}\.vlm\OpenWithProgids" "${PROGID}"
    DeleteRegKey /ifempty HKCU "${CLASSES}\.vlm\OpenWithProgids"
    ReadRegStr $0 HKCU "${CLASSES}\.vlm" ""
    ${If} $0 == "${PROGID}"
        DeleteRegValue HKCU "${CLASSES}\.vlm" ""
        ReadRegStr $1 HKCU "${UNINSTALL_KEY}" "PreviousAssociation"
        ${If} $1 != ""
            ; Not to a program that is gone by now.
            ClearErrors
            EnumRegKey $2 HKCR "$1" 0
            EnumRegKey $3 HKCU "${CLASSES}\$1" 0
            ReadRegStr $4 HKCR "$1" ""
            ReadRegStr $5 HKCU "${CLASSES}\$1" ""
            ${If} "$2$3$4$5" != ""
                WriteRegStr HKCU "${CLASSES}\.vlm" "" $1
            ${EndIf}
        ${EndIf}
    ${EndIf}
    ClearErrors
    EnumRegValue $0 HKCU "${CLASSES}\.vlm" 0
    ${If} ${Errors}
        DeleteRegKey /ifempty HKCU "${CLASSES}\.vlm"
    ${EndIf}
    ClearErrors
    ${TellTheShell}
FunctionEnd

; Puts together what the person is told at the end: which files stayed in the folder.
Function un.TellWhatStayed
    StrCpy $FinishText "Your settings stay for another installation."
    ${IfNot} ${FileExists} "$INSTDIR\*.*"
        StrCpy $FinishText "$FinishText Nothing stayed in its folder."
        Return
    ${EndIf}
    StrCpy $Kept ""
    StrCpy $2 0
    FindFirst $0 $1 "$INSTDIR\*.*"
    ${DoUntil} $1 == ""
        ${If} $1 != "."
        ${AndIf} $1 != ".."
        ${AndIf} $1 != "uninstall.exe"
            IntOp $2 $2 + 1
            ${If} $2 <= 6
                StrCpy $Kept "$Kept$\r$\n    $1"
            ${EndIf}
        ${EndIf}
        FindNext $0 $1
    ${Loop}
    FindClose $0
    ClearErrors
    ${If} $2 > 6
        IntOp $2 $2 - 6
        StrCpy $Kept "$Kept$\r$\n    and $2 more"
    ${EndIf}
    ${If} $Kept != ""
        StrCpy $FinishText "$FinishText What is yours is where it was, in$\r$\n$INSTDIR$\r$\n$Kept"
    ${EndIf}
FunctionEnd

Section "Uninstall"
    Call un.CheckNotRunning
    SetOutPath "$TEMP"

    ClearErrors
    FileOpen $9 "$INSTDIR\${LIST}" r
    ${Unless} ${Errors}
        ${Do}
            Call un.NextOfList
            ${If} $R3 == ""
                ${Break}
            ${EndIf}
            StrCpy $R0 "$INSTDIR\$R3"
            Call un.HashOfFile
            ${If} $R1 == $R2
                Delete "$INSTDIR\$R3"
            ${EndIf}
        ${Loop}
        FileClose $9
    ${EndUnless}
    ClearErrors
    Delete "$INSTDIR\vellumo.exe"
    Delete "$INSTDIR\vellumo-cli.exe"
    Delete "$INSTDIR\${LIST}"
    ; Only what is empty by now.
    RMDir "$INSTDIR\help"
    RMDir "$INSTDIR\licences"
    Delete "$INSTDIR\uninstall.exe"
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
    ; Another copy that was installed later keeps its entries.
    ${If} $0 == $INSTDIR
    ${OrIfNot} ${FileExists} "$0\uninstall.exe"
        Call un.GiveAssociationBack
        Delete "$SMPROGRAMS\Vellumo.lnk"
        ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "DesktopShortcut"
        ${If} $0 != ""
            Delete "$0"
        ${EndIf}
        DeleteRegKey HKCU "${UNINSTALL_KEY}"
    ${EndIf}
    RMDir "$INSTDIR"
    Call un.TellWhatStayed
SectionEnd
