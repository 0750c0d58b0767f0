#include "Outside.h"

#include "taker/ui/FrmTest.h"
#include "testdoc/TestParser.h"

#include <QApplication>
#include <QMouseEvent>

#include <benchmark/benchmark.h>

namespace {

/// 500 questions of changing length with ten answers each.
TestDocument LongestTest() {
    TestDocument test;
    test.TestFileText = QStringLiteral("[TITLE]Longest[/TITLE][NAVIGATION BUTTONS][TEMPLATE]");
    for (int a = 1; a <= MaxAnswers; ++a)
        test.TestFileText +=
            QStringLiteral("[A]An answer with the number %1 that wraps in a narrow window[v=%1][/A]").arg(a);
    test.TestFileText += QStringLiteral("[/TEMPLATE]");
    for (int q = 1; q <= MaxQuestions; ++q)
        test.TestFileText +=
            QStringLiteral("[Q]Question %1 %2[/Q]").arg(q).arg(QStringLiteral("and so on ").repeated(q % 30));
    LoadTest(test);
    // Answers that differ from question to question, so that every button has to be laid out anew.
    for (int q = 1; q <= MaxQuestionsWithAnswers; ++q) {
        test.QuestionType(q) = Multichoice;
        test.AnswerCount(q) = MaxAnswers;
        for (int a = 1; a <= MaxAnswers; ++a)
            test.AnswerText(q, a) = test.TemplateAnswerText(a) + QStringLiteral(" in question %1 ").arg(q) +
                                    QStringLiteral("and more ").repeated((q + a) % 12);
    }
    return test;
}

/// Counts the paintings of the question box.
class PaintCounter : public QObject {
  public:
    bool eventFilter(QObject*, QEvent* event) override {
        Count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int Count = 0;
};

void ClickMiddleOf(QWidget& button) {
    const QPointF middle = button.rect().center();
    const QPointF global = button.mapToGlobal(middle);
    QMouseEvent press(QEvent::MouseButtonPress, middle, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, middle, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&button, &press);
    QCoreApplication::sendEvent(&button, &release);
}

/// From the click on an answer to the next question painted; the limit is 16 ms.
void ClickToNextQuestionPainted(benchmark::State& state) {
    Session session;
    session.Test = LongestTest();
    NoPrompts prompts;
    NoChooser chooser;
    SystemClock clock;
    NoLauncher launcher;
    NoOffice office;
    NoNavigator navigator;
    FrmTest window({session, prompts, chooser, clock, launcher, office, navigator});
    window.show();
    QCoreApplication::processEvents();
    PaintCounter painted;
    window.findChild<QTextEdit*>(QStringLiteral("TxtQuest"))->viewport()->installEventFilter(&painted);
    auto* answer = window.findChild<QPushButton*>(QStringLiteral("Opt_3"));
    auto* forward = window.findChild<QPushButton*>(QStringLiteral("CmdForward"));
    auto* back = window.findChild<QPushButton*>(QStringLiteral("CmdBack"));

    for (auto _ : state) {
        const int before = painted.Count;
        ClickMiddleOf(*answer);
        // Layout and painting are both posted; it is over when nothing is left.
        do
            QCoreApplication::processEvents();
        while (painted.Count == before);
        QCoreApplication::processEvents();
        if (session.Responses.CurrentQuestion == MaxQuestions) {
            state.PauseTiming();
            ClickMiddleOf(*answer);
            back->click();
            forward->click();
            forward->click();
            QCoreApplication::processEvents();
            if (session.Responses.CurrentQuestion != 1)
                state.SkipWithError("The window didn't come back to question 1");
            state.ResumeTiming();
        }
    }
}
BENCHMARK(ClickToNextQuestionPainted)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
