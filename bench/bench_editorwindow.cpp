// From a key or a click in the editor to its page painted, on a test as full as the editor lets one be.

#include "FullestTest.h"
#include "Outside.h"

#include "editor/ui/frmTestEditor.h"
#include "testdoc/TestParser.h"
#include "testdoc/TestWriter.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace {

struct OpenEditor {
    OpenEditor() {
        test = FullestTest(10);
        window = std::make_unique<frmTestEditor>(EditorFileParts{test, settings, prompts, chooser, navigator, copies});
        // The file couldn't be opened at this length, so the window takes the document as one that was left unsaved.
        window->LoadRecovered({});
        window->show();
        Settle();
    }

    static void Settle() { QCoreApplication::processEvents(); }
    template <typename Control> Control& The(const QString& name) {
        auto* control = window->findChild<Control*>(name);
        if (!control)
            std::abort();
        return *control;
    }
    void Choose(int tab) {
        The<EditorTabStrip>(QStringLiteral("tbsOptions")).Choose(tab);
        Settle();
    }

    TestDocument test;
    Settings settings;
    NoPrompts prompts;
    NoChooser chooser;
    NoNavigator navigator;
    SystemClock clock;
    Recovery copies{{}, clock};
    std::unique_ptr<frmTestEditor> window;
};

/// Everything that a key brings about: the handler, the layout and the painting.
void TypeALetter(benchmark::State& state, int tab, const char* name) {
    OpenEditor editor;
    editor.Choose(tab);
    auto& box = editor.The<QWidget>(QLatin1String(name));
    box.setFocus();
    int count = 0;
    for (auto _ : state) {
        // Every 50 letters the box begins again, as texts of ordinary length do.
        const bool clears = ++count % 50 == 0;
        QKeyEvent all(QEvent::KeyPress, Qt::Key_A, Qt::ControlModifier);
        if (clears)
            QCoreApplication::sendEvent(&box, &all);
        QKeyEvent key(QEvent::KeyPress, Qt::Key_1, Qt::NoModifier, QStringLiteral("1"));
        QCoreApplication::sendEvent(&box, &key);
        OpenEditor::Settle();
    }
}
BENCHMARK_CAPTURE(TypeALetter, title, 0, "txtTitle")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(TypeALetter, introduction, 0, "txtIntroduction")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(TypeALetter, subScale, 1, "txtSubScale")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(TypeALetter, rangeText, 1, "txtSubScaleSig")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(TypeALetter, templateAnswer, 2, "txtTemplate")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(TypeALetter, question, 3, "txtQuestion")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(TypeALetter, totalText, 4, "txtTotText")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(TypeALetter, reportFile, 6, "Text1")->Unit(benchmark::kMillisecond);

/// At the end of one paragraph of 30,000 letters, as after a paste.
void TypeBehindALongParagraph(benchmark::State& state) {
    OpenEditor editor;
    editor.Choose(0);
    auto& box = editor.The<TextBox>(QStringLiteral("txtIntroduction"));
    box.SetText(QStringLiteral("word ").repeated(6000));
    box.moveCursor(QTextCursor::End);
    box.setFocus();
    OpenEditor::Settle();
    for (auto _ : state) {
        QKeyEvent key(QEvent::KeyPress, Qt::Key_1, Qt::NoModifier, QStringLiteral("1"));
        QCoreApplication::sendEvent(&box, &key);
        OpenEditor::Settle();
    }
}
BENCHMARK(TypeBehindALongParagraph)->Unit(benchmark::kMillisecond);

void ClickTheButton(benchmark::State& state, int tab, const char* name) {
    OpenEditor editor;
    editor.Choose(tab);
    auto& button = editor.The<QPushButton>(QLatin1String(name));
    for (auto _ : state) {
        button.click();
        OpenEditor::Settle();
    }
}
BENCHMARK_CAPTURE(ClickTheButton, nextQuestion, 3, "CmdQuestNav_1")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ClickTheButton, storeQuestion, 3, "CmdQuestion_2")->Unit(benchmark::kMillisecond);

void ChooseASubscale(benchmark::State& state) {
    OpenEditor editor;
    editor.Choose(1);
    auto& list = editor.The<QListWidget>(QStringLiteral("ListSubScale"));
    int row = 0;
    for (auto _ : state) {
        list.setCurrentRow(row = (row + 1) % MaxSubscales);
        OpenEditor::Settle();
    }
}
BENCHMARK(ChooseASubscale)->Unit(benchmark::kMillisecond);

void ChooseATab(benchmark::State& state) {
    OpenEditor editor;
    int tab = 0;
    for (auto _ : state)
        editor.Choose(tab = (tab + 1) % EditorPageCount);
}
BENCHMARK(ChooseATab)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
