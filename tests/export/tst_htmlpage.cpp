#include "cli/Console.h"
#include "cli/Tool.h"
#include "export/HtmlPage.h"
#include "support/Files.h"

#include <QBuffer>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QByteArray Mark("\xEF\xBB\xBF");
const QByteArray Head = "<html lang=\"en\"><head><title>T</title></head><body bgcolor='#FFFFFF' text='#000080'>";
const QByteArray Credit = "<p align='center'>Test Created By <a href='https://www.example.com/vellumo'>Vellumo</a>.</p>"
                          "</body></html>";

struct Ran {
    int Status = -1;
    QByteArray Out, Err;
};

/// "vellumo-cli html" on a test of one question, with a template that says "<TITLE>" and the question.
class Tool {
  public:
    Tool() {
        Put("t.vlm", "[TITLE]T[/TITLE][Q]\xE4?[A]y[v=1][/A][/Q]");
        Put("t.vlx", "[HEADER][EMAIL]>[NEXT PAGE][/HEADER][MULTICHOICE][Q][QUESTION TEXT][/Q][/MULTICHOICE]");
        settings_.HtmlLanguage = QStringLiteral("en");
        settings_.DefaultEmail = QStringLiteral("set@example.com");
        settings_.DefaultNextPage = QStringLiteral("set.html");
        settings_.HtmlTemplatePath = QStringLiteral("t.vlx");
    }
    QString Path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }
    void Put(const char* name, const QByteArray& bytes) const { PutBytes(Path(name), bytes); }

    Ran Run(const QStringList& options) {
        Ran ran;
        QBuffer in, out(&ran.Out), err(&ran.Err);
        in.open(QIODevice::ReadOnly);
        out.open(QIODevice::WriteOnly);
        err.open(QIODevice::WriteOnly);
        const SystemClock clock;
        Console console{in, out, err, false, clock, settings_, folder_.path()};
        ran.Status = RunTool(QStringList{QStringLiteral("html"), Path("t.vlm")} + options, console);
        return ran;
    }

  private:
    QTemporaryDir folder_;
    Settings settings_;
};

const QByteArray Body = "set@example.com>set.html\xC3\xA4?\r\n\r\n\r\n\r\n";

} // namespace

class tst_htmlpage : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void EncodePage_Declaration_Decides_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("bytes");
        const auto row = [](const char* name, const char* text, const QByteArray& bytes) {
            QTest::newRow(name) << QString::fromUtf8(text) << bytes;
        };
        row("none, plain", "<p>a", "<p>a");
        row("none, code page", "<p>ä€", "<p>\xE4\x80");
        row("none, no character of the code page", "<p>ж", Mark + "<p>\xD0\xB6");
        row("none, would be read as UTF-8", "Ã¤", Mark + "\xC3\x83\xC2\xA4");
        row("UTF-8", "<meta charset=\"utf-8\">ä", "<meta charset=\"utf-8\">\xC3\xA4");
        row("UTF-8 the long way", "<META http-equiv=Content-Type content='text/html; charset=UTF-8'>ä",
            "<META http-equiv=Content-Type content='text/html; charset=UTF-8'>\xC3\xA4");
        row("windows-1252", "<meta charset=windows-1252>ä", "<meta charset=windows-1252>\xE4");
        row("ISO 8859-1 means windows-1252", "<meta charset='ISO-8859-1'>€", "<meta charset='ISO-8859-1'>\x80");
        row("windows-1252, doesn't fit", "<meta charset=windows-1252>ж", Mark + "<meta charset=windows-1252>\xD0\xB6");
        row("another one", "<meta charset=koi8-r>ж", "<meta charset=koi8-r>\xD6");
        row("another one, doesn't fit", "<meta charset=koi8-r>€ä", Mark + "<meta charset=koi8-r>\xE2\x82\xAC\xC3\xA4");
        row("an unknown one", "<meta charset=martian>ä", Mark + "<meta charset=martian>\xC3\xA4");
        row("in a comment", "<!-- <meta charset=utf-8> -->ä", "<!-- <meta charset=utf-8> -->\xE4");
        row("another meta element first", "<meta name=x content='y'><meta charset=utf-8>ä",
            "<meta name=x content='y'><meta charset=utf-8>\xC3\xA4");
        row("in the text only", "charset=utf-8 ä", "charset=utf-8 \xE4");
    }
    void EncodePage_Declaration_Decides() {
        QFETCH(QString, text);
        QTEST(EncodePage(text), "bytes");
    }

    void EncodePage_HostWithMark_KeepsIt() {
        QCOMPARE(EncodePage(QStringLiteral("ä"), TextEncoding::Utf8WithMark), Mark + "\xC3\xA4");
        QCOMPARE(EncodePage(QStringLiteral("<meta charset=utf-8>ä"), TextEncoding::Utf8WithMark),
                 Mark + "<meta charset=utf-8>\xC3\xA4");
    }

    void InsertInto_Text_FirstOccurrence_data() {
        QTest::addColumn<QString>("host");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("after");
        QTest::addColumn<QString>("result");
        QTest::newRow("before") << "a</BODY>b"
                                << "</body>" << false << "aX</BODY>b";
        QTest::newRow("after") << "a</BODY>b"
                               << "</body>" << true << "a</BODY>Xb";
        QTest::newRow("first of two") << "-m-m-"
                                      << "M" << false << "-Xm-m-";
        QTest::newRow("letters beyond a to z") << "GRÖSSE"
                                               << "ö" << true << "GRÖXSSE";
        QTest::newRow("at the end") << "ab"
                                    << "B" << true << "abX";
        QTest::newRow("not there") << "a"
                                   << "b" << false << QString();
    }
    void InsertInto_Text_FirstOccurrence() {
        QFETCH(QString, host);
        QFETCH(QString, text);
        QFETCH(bool, after);
        QTEST(InsertInto(host, QStringLiteral("X"), {text, after}).value_or(QString()), "result");
    }

    void InsertInto_PageWithTheTest_ReplacesItsOwnKind() {
        const QString old = QStringLiteral("<!-- vellumo begins -->1<!-- vellumo ends -->");
        const QString paper = QStringLiteral("<!-- vellumo-paper begins -->2<!-- vellumo-paper ends -->");
        const QString made = QString(old).replace(u'1', u'3');
        QCOMPARE(InsertInto(old + u'a' + paper + old + u'Z', made, {QStringLiteral("z"), false}).value_or(QString()),
                 u'a' + paper + made + u'Z');
        QVERIFY(!InsertInto(old, made, {QStringLiteral("1"), false}));
    }

    void NewPage_HostileTitle_IsEscaped() {
        QVERIFY(NewPage(QStringLiteral("</title><b>&'\""), QStringLiteral("<i>"), QStringLiteral("de"))
                    .startsWith(QStringLiteral("<html lang=\"de\"><head><title>&lt;/title&gt;&lt;b&gt;&amp;&#39;&quot;"
                                               "</title></head><body bgcolor='#FFFFFF' text='#000080'><i><p")));
    }

    void PageLanguage_NoTag_IsTheSystems() {
        for (const char* tag : {"", "de_AT", "\"><script>", "de\n", "-", "a2"})
            QCOMPARE(PageLanguage(QLatin1String(tag)), QLocale::system().bcp47Name());
        QCOMPARE(PageLanguage(QStringLiteral("zh-Hant-TW")), QStringLiteral("zh-Hant-TW"));
    }

    void Run_Forms_ExactBytes_data() {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QByteArray>("out");
        const auto row = [](const char* name, const char* options, const QByteArray& out) {
            QTest::newRow(name) << QString::fromLatin1(options).split(u' ', Qt::SkipEmptyParts) << out;
        };
        row("new page", "", Head + Body + Credit + "\r\n");
        row("fragment", "--fragment", Body);
        row("values", "--fragment --email=me@here --next-page next", "me@here>next\xC3\xA4?\r\n\r\n\r\n\r\n");
        row("empty values", "--fragment --email= --next-page=", ">\xC3\xA4?\r\n\r\n\r\n\r\n");
        row("before", "--insert-into HOST --before </body>", "<BODY>\r\n" + Body + "</BODY>\r\n\r\n");
        row("after", "--insert-into HOST --after <body>", "<BODY>" + Body + "\r\n</BODY>\r\n\r\n");
    }
    void Run_Forms_ExactBytes() {
        QFETCH(QStringList, options);
        QFETCH(QByteArray, out);
        Tool tool;
        tool.Put("host.html", "<BODY>\n</BODY>");
        options.replaceInStrings(QStringLiteral("HOST"), tool.Path("host.html"));
        const Ran printed = tool.Run(options);
        QCOMPARE(printed.Err, QByteArray());
        QCOMPARE(printed.Status, 0);
        QCOMPARE(printed.Out, out);

        const Ran written = tool.Run(options + QStringList{QStringLiteral("--output"), tool.Path("out.html")});
        QCOMPARE(written.Err + written.Out, QByteArray());
        QCOMPARE(written.Status, 0);
        // No encoding is declared, so the file is in the code page.
        QCOMPARE(BytesOf(tool.Path("out.html")), QByteArray(out).replace("\xC3\xA4", "\xE4"));
        QVERIFY(QFileInfo(tool.Path("out.html")).permission(QFileDevice::ReadOther));
        QCOMPARE(BytesOf(tool.Path("host.html")), QByteArray("<BODY>\n</BODY>"));
    }

    void Run_HostIntoItself_KeepsItsEncoding_data() {
        QTest::addColumn<QByteArray>("host");
        QTest::addColumn<QByteArray>("question");
        QTest::newRow("code page") << QByteArray("\xF6!") << QByteArray("\xE4");
        QTest::newRow("declared UTF-8") << QByteArray("<meta charset=utf-8>\xC3\xB6!") << QByteArray("\xC3\xA4");
        QTest::newRow("mark") << Mark + QByteArray("\xC3\xB6!") << QByteArray("\xC3\xA4");
        QTest::newRow("declared ISO 8859-15") << QByteArray("<meta charset=iso-8859-15>\xA4!") << QByteArray("\xE4");
    }
    void Run_HostIntoItself_KeepsItsEncoding() {
        QFETCH(QByteArray, host);
        QFETCH(QByteArray, question);
        Tool tool;
        tool.Put("host.html", host);
        const Ran ran = tool.Run({QStringLiteral("--insert-into"), tool.Path("host.html"), QStringLiteral("--after"),
                                  QStringLiteral("!"), QStringLiteral("--output"), tool.Path("host.html")});
        QCOMPARE(ran.Err, QByteArray());
        QCOMPARE(BytesOf(tool.Path("host.html")), host + QByteArray(Body).replace("\xC3\xA4", question) + "\r\n\r\n");
    }

    void Run_Unusable_MessageAndNothingWritten_data() {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QString>("message");
        const auto row = [](const char* name, const char* options, const char* message) {
            QTest::newRow(name) << QString::fromLatin1(options).split(u' ') << QString::fromLatin1(message);
        };
        row("no such template", "--template DIR/no.vlx",
            "Error loading HTML template file: DIR/no.vlx\nThe reason: there is no such file\n");
        row("no sections", "--template DIR/host.html",
            "The template 'DIR/host.html' makes no page: it has none of the sections that a page consists of\n");
        row("own tag", "--email [EMAIL]",
            "Error loading HTML template file: t.vlx\nThe reason: what is filled in for [EMAIL] contains that tag "
            "itself, "
            "so that filling it in would never end\n");
        row("no such text", "--insert-into DIR/host.html --before x", "Text For Insertion Not Found\n");
        row("no such host", "--insert-into DIR/no.html --before x",
            "Can't read the page 'DIR/no.html': there is no such file\n");
        row("a folder as host", "--insert-into DIR --before x", "Can't read the page 'DIR': it is a directory\n");
    }
    void Run_Unusable_MessageAndNothingWritten() {
        QFETCH(QStringList, options);
        QFETCH(QString, message);
        Tool tool;
        tool.Put("host.html", "host");
        const QString folder = QFileInfo(tool.Path("x")).path();
        options.replaceInStrings(QStringLiteral("DIR"), folder);
        const Ran ran = tool.Run(options + QStringList{QStringLiteral("--output"), tool.Path("out.html")});
        QCOMPARE(QString::fromUtf8(ran.Err), message.replace(QStringLiteral("DIR"), folder));
        QCOMPARE(ran.Status, 1);
        QCOMPARE(ran.Out, QByteArray());
        QVERIFY(!QFileInfo::exists(tool.Path("out.html")));
    }

    void Run_Language_DeclaredOrRefused() {
        Tool tool;
        QVERIFY(
            tool.Run({QStringLiteral("--language"), QStringLiteral("de")}).Out.startsWith("<html lang=\"de\"><head>"));
        QCOMPARE(tool.Run({QStringLiteral("--language=<")}).Status, 2);
    }

    void Run_OutputThatCannotBeWritten_SaysSo() {
        Tool tool;
        const QString folder = QFileInfo(tool.Path("x")).path();
        const Ran ran = tool.Run({QStringLiteral("--output"), folder});
        QCOMPARE(ran.Status, 1);
        QVERIFY2(ran.Err.startsWith("Can't write the file '" + folder.toUtf8()), ran.Err.constData());
    }
};

QTEST_GUILESS_MAIN(tst_htmlpage)
#include "tst_htmlpage.moc"
