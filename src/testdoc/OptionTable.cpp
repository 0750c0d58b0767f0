#include "testdoc/OptionTable.h"

const std::array<QString, OptionCount>& OptionTags() {
    static const std::array<QString, OptionCount> tags{
        QStringLiteral("[REPORT TITLE]"),
        QStringLiteral("[REPORT INTRODUCTION]"),
        QStringLiteral("[REPORT INSTRUCTIONS]"),
        QStringLiteral("[REPORT MULTICHOICE QUESTION ANSWERS]"),
        QStringLiteral("[REPORT SUBSCALES]"),
        QStringLiteral("[REPORT TOTAL SCORE]"),
        QStringLiteral("[REPORT NUMBER OF QUESTIONS COMPLETED]"),
        QStringLiteral("[REPORT DATE AND TIME COMPLETED]"),
        QStringLiteral("[REPORT ANALYSIS]"),
        QStringLiteral("[PROMPT CLIENT NAME]"),
        QStringLiteral("[PROMPT TESTER NAME]"),
        QStringLiteral("[REPORT SHORT ANSWERS]"),
        QStringLiteral("[REPORT LONG ANSWERS]"),
        QStringLiteral("[REPORT QUESTIONS]"),
        QStringLiteral("[DISABLE ALL OPTIONS]"),
        QStringLiteral("[UPDATE FILES WITHOUT PROMPTING]"),
        QStringLiteral("[TERMINATE PROGRAM WHEN TEST COMPLETED]"),
        QStringLiteral("[AUTOSAVE REPORT AS CLIENT]"),
        QStringLiteral("[AUTOSAVE REPORT DIRECTORY AS CLIENT]"),
        QStringLiteral("[AUTOSAVE EXCEL DIRECTORY AS CLIENT]"),
        QStringLiteral("[AUTOSAVE EXCEL REPORT AS CLIENT]"),
        QStringLiteral("[OPEN EXCEL REPORT WHEN COMPLETED]"),
        QStringLiteral("[APPEND TO REPORT FILE]"),
        QStringLiteral("[OPEN REPORT WHEN COMPLETED]"),
        QStringLiteral("[INCLUDE MULTICHOICE ANSWERS IN EXCEL FILE]"),
        QStringLiteral("[INCLUDE SHORT ANSWERS IN EXCEL FILE]"),
        QStringLiteral("[INCLUDE LONG ANSWERS IN EXCEL FILE]"),
        QStringLiteral("[INCLUDE CLIENT NAME IN EXCEL FILE]"),
        QStringLiteral("[INCLUDE DATE IN EXCEL FILE]"),
        QStringLiteral("[INCLUDE SUB-SCALES IN EXCEL FILE]"),
        QStringLiteral("[INCLUDE TOTAL SCORE IN EXCEL FILE]"),
    };
    return tags;
}
