#include "platform/SystemPorts.h"
#include "platform/unix/LibreOfficeWriter.h"

#include <QXmlStreamReader>
#include <QtTest>

namespace {

/// A program on the PATH that writes its arguments, and what the last of them names, to files in a folder.
class RecordingProgram {
  public:
    explicit RecordingProgram(const QString& name) {
        QFile script(folder_.filePath(name));
        if (script.open(QIODevice::WriteOnly))
            script.write(
                QStringLiteral(
                    "#!/bin/sh\nfor a; do printf '%s\\n' \"$a\"; last=$a; done > '%1/args.new'\n"
                    "cat \"$last\" > '%1/content'\nstat -c %a \"$last\" > '%1/mode'\nmv '%1/args.new' '%1/args'\n")
                    .arg(folder_.path())
                    .toUtf8());
        script.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        path_ = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(folder_.path()) + ':' + path_);
    }
    ~RecordingProgram() { qputenv("PATH", path_); }

    /// The arguments, once the program has run; empty when it didn't within five seconds.
    QStringList Arguments() const {
        if (!QTest::qWaitFor([&] { return QFile::exists(folder_.filePath(QStringLiteral("args"))); }))
            return {};
        return QString::fromUtf8(Read("args")).split(u'\n', Qt::SkipEmptyParts);
    }
    QByteArray Content() const { return Read("content"); }
    /// The permissions of what the last argument names, as octal digits.
    QByteArray Mode() const { return Read("mode").trimmed(); }

  private:
    QByteArray Read(const char* name) const {
        QFile file(folder_.filePath(QLatin1String(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder_;
    QByteArray path_;
};

/// The paragraphs of a flat OpenDocument text, blanks and tabs put back.
QStringList Paragraphs(const QByteArray& document) {
    QXmlStreamReader xml(document);
    QStringList paragraphs;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QStringLiteral("p"))
            paragraphs += QString();
        else if (xml.isStartElement() && xml.name() == QStringLiteral("s"))
            paragraphs.last() += u' ';
        else if (xml.isStartElement() && xml.name() == QStringLiteral("tab"))
            paragraphs.last() += u'\t';
        else if (xml.isCharacters() && !paragraphs.isEmpty())
            paragraphs.last() += xml.text();
    }
    return xml.hasError() ? QStringList{xml.errorString()} : paragraphs;
}

} // namespace

class tst_systemports : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void FlatOpenDocument_Text_EveryLetterKept();
    void TypeText_Writer_NewDocumentWithTheText();
    void TypeText_NoWriter_Fails();
    void Open_Program_PathIsOneArgument();
    void Open_NameLikeAnOption_BecomesAPath();
    void Open_NoSuchProgram_MessageNamesIt();
};

void tst_systemports::FlatOpenDocument_Text_EveryLetterKept() {
    const QString text = QStringLiteral("A  B\tC \r\n\r\n<Zoë & 李 \U0001F600>\n end\x01");
    QCOMPARE(Paragraphs(FlatOpenDocument(text)),
             (QStringList{QStringLiteral("A  B\tC "), QString(), QStringLiteral("<Zoë & 李 \U0001F600>"),
                          QStringLiteral(" end")}));
}

void tst_systemports::TypeText_Writer_NewDocumentWithTheText() {
    RecordingProgram writer(QStringLiteral("lowriter"));
    LibreOfficeWriter wordProcessor;
    const Result typed = wordProcessor.TypeText(QStringLiteral("One\r\nTwo"));
    QVERIFY2(typed, qPrintable(typed.Message()));
    const QStringList arguments = writer.Arguments();
    QCOMPARE(arguments.size(), 2);
    QCOMPARE(arguments.first(), QStringLiteral("-n"));
    QCOMPARE(Paragraphs(writer.Content()), (QStringList{QStringLiteral("One"), QStringLiteral("Two")}));
    QCOMPARE(writer.Mode(), "600");
    QVERIFY(QTest::qWaitFor([&] { return !QFileInfo::exists(QFileInfo(arguments.last()).path()); }));
}

void tst_systemports::TypeText_NoWriter_Fails() {
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", "/no such folder");
    const Result typed = MakeWordProcessor()->TypeText(QStringLiteral("x"));
    qputenv("PATH", path);
    QVERIFY(!typed);
}

void tst_systemports::Open_Program_PathIsOneArgument() {
    RecordingProgram editor(QStringLiteral("an-editor"));
    const Result opened = MakeLauncher()->Open(QStringLiteral("an-editor"), QStringLiteral("/tmp/a b \"c\".txt"));
    QVERIFY2(opened, qPrintable(opened.Message()));
    QCOMPARE(editor.Arguments(), QStringList{QStringLiteral("/tmp/a b \"c\".txt")});
}

void tst_systemports::Open_NameLikeAnOption_BecomesAPath() {
    RecordingProgram editor(QStringLiteral("an-editor"));
    QVERIFY(MakeLauncher()->Open(QStringLiteral("an-editor"), QStringLiteral("+!command;.txt")));
    QCOMPARE(editor.Arguments(), QStringList{QDir::currentPath() + QStringLiteral("/+!command;.txt")});
}

void tst_systemports::Open_NoSuchProgram_MessageNamesIt() {
    const Result opened = MakeLauncher()->Open(QStringLiteral("no-such-editor"), QStringLiteral("/tmp/x"));
    QVERIFY(!opened);
    QVERIFY2(opened.Message().contains(QStringLiteral("'no-such-editor'")), qPrintable(opened.Message()));
}

QTEST_GUILESS_MAIN(tst_systemports)
#include "tst_systemports.moc"
