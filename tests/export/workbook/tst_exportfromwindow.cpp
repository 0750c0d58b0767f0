#include "app/Program.h"
#include "export/ui/QtExportWindows.h"
#include "export/workbook/BuiltInSpreadsheet.h"
#include "testdoc/TestParser.h"

#include <QtTest>

class tst_exportfromwindow : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Program_TestTaken_RowsInWorkbook();
};

void tst_exportfromwindow::Program_TestTaken_RowsInWorkbook() {
    Program program;
    program.office.Entries[SpreadsheetKey] = QStringLiteral("Workbook");
    QtExportWindows windows(program.chooser, program.navigator);
    SpreadsheetExport exporter(
        program.prompts, program.clock, program.office,
        [&] {
            return std::make_unique<BuiltInSpreadsheet>(
                BuiltInSpreadsheetParts{&program.launcher, QStringLiteral("calc"), QtExportWindows::StayPainted});
        },
        windows);
    program.navigator.UseExporter(exporter);
    program.Put(QStringLiteral("Mood.vlm"),
                "[TITLE]Mood[/TITLE][Q]One[A]a[v=4][/A][A]b[v=5][/A][/Q][EXCEL DIR]Results[/EXCEL DIR]"
                "[UPDATE FILES WITHOUT PROMPTING][AUTOSAVE EXCEL REPORT AS CLIENT][INCLUDE CLIENT NAME IN EXCEL FILE]"
                "[INCLUDE TOTAL SCORE IN EXCEL FILE]");
    program.navigator.ShowStartScreen();
    QVERIFY(!OpenTest(program.session.Test, program.folder.filePath(QStringLiteral("Mood.vlm"))).Message().size());
    program.navigator.BeginLoadedTest();
    const DialogDriver names([](QDialog& dialog) {
        auto& name = Find<QLineEdit>(dialog, QStringLiteral("txtclient_0"));
        QVERIFY(name.isEnabled());
        name.setText(QStringLiteral("Ann Lee"));
        Click(dialog, QStringLiteral("Lblok_0"));
    });
    Click(*program.navigator.TestWindow(), QStringLiteral("Opt_2"));
    QVERIFY(names.Finished());
    const QString path = program.folder.filePath(QStringLiteral("Results/Vellumo Results Ann Lee.exl"));
    const auto rows = [&] {
        Workbook workbook(BytesOf(path));
        QString text;
        for (int row = 4;; ++row) {
            const CellValue name = workbook.Cell(row, 1);
            if (!std::holds_alternative<QString>(name))
                return text;
            text += std::get<QString>(name) + QString::number(std::get<double>(workbook.Cell(row, 2))) + u' ';
        }
    };
    QCOMPARE(rows(), QStringLiteral("Ann Lee5 "));

    const DialogDriver again([](QDialog& dialog) {
        QVERIFY(Find<QLabel>(dialog, QStringLiteral("Label2")).isVisible());
        Click(dialog, QStringLiteral("ChkReportOptions_22"));
        Click(dialog, QStringLiteral("OKButton"));
    });
    Click(*program.navigator.TestWindow(), QStringLiteral("CmdExport"));
    QVERIFY(again.Finished());
    QCOMPARE(rows(), QStringLiteral("Ann Lee5 Ann Lee5 "));
    QCOMPARE(program.launcher.Starts.size(), 1);
    QCOMPARE(program.launcher.Starts[0].Path, QFileInfo(path).absoluteFilePath());
    QVERIFY(!QApplication::activeModalWidget());
}

QTEST_MAIN(tst_exportfromwindow)
#include "tst_exportfromwindow.moc"
