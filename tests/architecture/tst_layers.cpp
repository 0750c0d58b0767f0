#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QtTest>

#include <functional>

namespace {

const QString Ui = QStringLiteral("ui");

/// The subsystems that each one may include besides itself.
const QMap<QString, QStringList>& MayInclude() {
    static const QStringList taker{QStringLiteral("base"), QStringLiteral("platform"), QStringLiteral("settings"),
                                   QStringLiteral("testdoc")};
    static const QStringList all = taker + QStringList{QStringLiteral("taker"), QStringLiteral("textedit"),
                                                       QStringLiteral("export"), QStringLiteral("editor")};
    static const QMap<QString, QStringList> table = {
        {QStringLiteral("base"), {}},
        {QStringLiteral("platform"), {QStringLiteral("base")}},
        {QStringLiteral("settings"), {QStringLiteral("base"), QStringLiteral("platform")}},
        {QStringLiteral("testdoc"), {QStringLiteral("base"), QStringLiteral("platform")}},
        {QStringLiteral("taker"), taker},
        {QStringLiteral("export"), taker + QStringList{QStringLiteral("taker")}},
        {QStringLiteral("editor"), taker},
        {QStringLiteral("textedit"), {QStringLiteral("base"), QStringLiteral("platform")}},
        {QStringLiteral("app"), all},
        {QStringLiteral("cli"), all},
    };
    return table;
}

/// What belongs to one place only, and the files that are that place.
struct Reserved {
    QString Word;
    QStringList Owners;
};

const QList<Reserved>& ReservedWords() {
    static const QList<Reserved> words = {
        {QStringLiteral("QMessageBox"), {QStringLiteral("platform/ui/QtPrompts.cpp")}},
        {QStringLiteral("QFileDialog"), {QStringLiteral("platform/ui/QtFileChooser.")}},
        {QStringLiteral("QPrinter"), {QStringLiteral("platform/ui/QtPrinter.cpp")}},
        {QStringLiteral("QProcess"), {QStringLiteral("platform/unix/"), QStringLiteral("platform/windows/")}},
        {QStringLiteral("QClipboard"), {QStringLiteral("platform/ui/QtClipboard.cpp")}},
        {QStringLiteral("QSettings"), {QStringLiteral("platform/unix/"), QStringLiteral("platform/windows/")}},
        {QStringLiteral("currentDateTime"), {QStringLiteral("platform/SystemClock.cpp")}},
        {QStringLiteral("currentTime"), {QStringLiteral("platform/SystemClock.cpp")}},
        {QStringLiteral("currentDate"), {QStringLiteral("platform/SystemClock.cpp")}},
        {QStringLiteral("system_clock"), {QStringLiteral("platform/SystemClock.cpp")}},
    };
    return words;
}

/// A source file by its path below src/, such as "taker/ui/FrmTest.h".
struct Source {
    QString Path;
    QString Text;

    QString Subsystem() const { return Path.section(u'/', 0, 0); }
    bool IsUi() const { return Path.section(u'/', 1, 1) == Ui; }
    bool IsMain() const { return Path == QStringLiteral("app/main.cpp"); }
};

/// What is wrong with a file's includes; empty when nothing is.
QStringList WrongIncludes(const Source& source) {
    static const QRegularExpression own(QStringLiteral("^#include \"([^\"]+)\""), QRegularExpression::MultilineOption);
    QStringList wrong;
    for (auto match = own.globalMatch(source.Text); match.hasNext();) {
        const Source target{match.next().captured(1), {}};
        const QString arrow = source.Path + QStringLiteral(" includes ") + target.Path;
        const QString from = source.Subsystem();
        const QString to = target.Subsystem();
        if (from != to && !MayInclude().value(from).contains(to))
            wrong.append(arrow);
        if (target.IsUi() && !source.IsUi() && !source.IsMain())
            wrong.append(arrow + QStringLiteral(", a window"));
        if (target.IsUi() && from != to && to != QStringLiteral("platform") && from != QStringLiteral("app"))
            wrong.append(arrow + QStringLiteral(", another subsystem's window"));
    }
    return wrong;
}

/// The Qt headers in the core that aren't QtCore's.
QStringList WidgetsInCore(const Source& source) {
    static const QRegularExpression widget(
        QStringLiteral(
            "^#include <(QtWidgets|QtGui|QtPrintSupport|QApplication|QGuiApplication|QWidget|QDialog|QMainWindow|"
            "QLabel|Q\\w*(Button|Edit|Box|Menu|Action|Layout|Widget|(?<!String|Array)View|Window|Painter|Printer|Event|"
            "Icon|"
            "Image|Pixmap|Color|Font|Clipboard|Screen|Palette))[/>]"),
        QRegularExpression::MultilineOption);
    QStringList wrong;
    if (source.IsUi() || source.IsMain())
        return wrong;
    for (auto match = widget.globalMatch(source.Text); match.hasNext();)
        wrong.append(source.Path + QStringLiteral(" includes ") + match.next().captured(1));
    return wrong;
}

QStringList ReservedWordsElsewhere(const Source& source) {
    QStringList wrong;
    for (const Reserved& reserved : ReservedWords()) {
        const bool owner =
            std::ranges::any_of(reserved.Owners, [&](const QString& place) { return source.Path.startsWith(place); });
        const QRegularExpression word(QStringLiteral("\\b%1\\b").arg(reserved.Word));
        if (!owner && source.Text.contains(word))
            wrong.append(source.Path + QStringLiteral(" uses ") + reserved.Word);
    }
    return wrong;
}

QList<Source> Sources() {
    const QString root = QStringLiteral(VELLUMO_SOURCE_DIR "/src/");
    QList<Source> sources;
    QDirIterator files(root, {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (file.open(QIODevice::ReadOnly))
            sources.append({file.fileName().mid(root.size()), QString::fromUtf8(file.readAll())});
    }
    return sources;
}

} // namespace

class tst_layers : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void Sources_All_KeepTheOrder();
    void Rules_WrongFile_IsFound_data();
    void Rules_WrongFile_IsFound();
};

void tst_layers::Sources_All_KeepTheOrder() {
    const QList<Source> sources = Sources();
    QVERIFY(sources.size() > 50);
    QStringList wrong;
    for (const Source& source : sources) {
        if (!MayInclude().contains(source.Subsystem()))
            wrong.append(source.Path + QStringLiteral(" is in no known subsystem"));
        wrong += WrongIncludes(source) + WidgetsInCore(source) + ReservedWordsElsewhere(source);
    }
    QVERIFY2(wrong.isEmpty(), qPrintable(u'\n' + wrong.join(u'\n')));
}

void tst_layers::Rules_WrongFile_IsFound_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("wrong");
    QTest::newRow("down") << "taker/Report.cpp"
                          << "#include \"testdoc/TestDocument.h\"" << false;
    QTest::newRow("up") << "testdoc/TestParser.cpp"
                        << "#include \"taker/Report.h\"" << true;
    QTest::newRow("sideways") << "textedit/ReportDocument.cpp"
                              << "#include \"settings/Settings.h\"" << true;
    QTest::newRow("tool and program") << "cli/Take.cpp"
                                      << "#include \"app/TestList.h\"" << true;
    QTest::newRow("core to window") << "taker/Report.cpp"
                                    << "#include \"taker/ui/FrmTest.h\"" << true;
    QTest::newRow("window to its own") << "taker/ui/FrmTest.cpp"
                                       << "#include \"taker/ui/AnswerPanel.h\"" << false;
    QTest::newRow("window to shared") << "taker/ui/FrmTest.cpp"
                                      << "#include \"platform/ui/HelpKey.h\"" << false;
    QTest::newRow("window to another's") << "taker/ui/FrmTest.cpp"
                                         << "#include \"settings/ui/frmOptions.h\"" << true;
    QTest::newRow("navigator to another's") << "app/ui/AppNavigator.cpp"
                                            << "#include \"taker/ui/FrmTest.h\"" << false;
    QTest::newRow("widget in the core") << "taker/Report.cpp"
                                        << "#include <QPushButton>" << true;
    QTest::newRow("widget in a window") << "taker/ui/FrmTest.cpp"
                                        << "#include <QPushButton>" << false;
    QTest::newRow("box of one's own") << "taker/ui/FrmTest.cpp"
                                      << "QMessageBox box;" << true;
    QTest::newRow("box in its place") << "platform/ui/QtPrompts.cpp"
                                      << "QMessageBox box;" << false;
    QTest::newRow("clock of one's own") << "taker/Report.cpp"
                                        << "QDateTime::currentDateTime()" << true;
}

void tst_layers::Rules_WrongFile_IsFound() {
    QFETCH(QString, path);
    QFETCH(QString, line);
    const Source source{path, line};
    const QStringList wrong = WrongIncludes(source) + WidgetsInCore(source) + ReservedWordsElsewhere(source);
    QTEST(!wrong.isEmpty(), "wrong");
}

QTEST_GUILESS_MAIN(tst_layers)
#include "tst_layers.moc"
