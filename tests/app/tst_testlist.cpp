#include "app/TestList.h"
#include "support/Files.h"
#include "support/TestText.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

class tst_testlist : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init();
    void cleanup();
    void ListTests_MixedFolder_SortsTestsByTitleAndBadFilesByReason();
    void ListTests_Always_ClearsTheDocument();
    void TextOfPart_AnyTest_IsWhatIsShown_data();
    void TextOfPart_AnyTest_IsWhatIsShown();
    void TextOfPart_TemplateWithElevenAnswers_ShowsTen();

  private:
    std::unique_ptr<QTemporaryDir> folder_;
    QString before_;
};

void tst_testlist::init() {
    folder_ = std::make_unique<QTemporaryDir>();
    before_ = QDir::currentPath();
    QDir::setCurrent(folder_->path());
}

void tst_testlist::cleanup() { QDir::setCurrent(before_); }

void tst_testlist::ListTests_MixedFolder_SortsTestsByTitleAndBadFilesByReason() {
    PutBytes(QStringLiteral("a.vlm"), "[TITLE]same[/TITLE]");
    PutBytes(QStringLiteral("b.VLM"), "[title]Same[/title]");
    PutBytes(QStringLiteral("broken.vlm"), "[TITLE]Mood");
    PutBytes(QStringLiteral("c.vlm"), QByteArray("\0\0", 2));
    PutBytes(QStringLiteral("d.vlm"), QByteArray(40'000, 'x'));
    PutBytes(QStringLiteral("e.vlm"), "no title");
    PutBytes(QStringLiteral("z.vlm"), "[TITLE]Another[/TITLE]");
    PutBytes(QStringLiteral("notes.txt"), "[TITLE]Not a test[/TITLE]");
    QDir().mkdir(QStringLiteral("folder.vlm"));

    TestDocument test;
    QStringList files;
    QStringList titles;
    for (const ListedTest& listed : ListTests(test)) {
        files.append(listed.FileName);
        titles.append(listed.Title);
    }
    QCOMPARE(files.join(u' '), QStringLiteral("z.vlm broken.vlm c.vlm d.vlm a.vlm b.VLM e.vlm"));
    QVERIFY2(titles[1].startsWith(QStringLiteral("broken.vlm: ")) && titles[1].contains(QStringLiteral("in the file")),
             qPrintable(titles[1]));
    QVERIFY(titles[2].startsWith(QStringLiteral("c.vlm: ")) && titles[2].size() > 10);
    QVERIFY2(titles[3].startsWith(QStringLiteral("d.vlm: ")) && titles[3].contains(QStringLiteral("32767")),
             qPrintable(titles[3]));
    QCOMPARE(titles.mid(4), QStringList({QStringLiteral("same"), QStringLiteral("Same"), QStringLiteral("Untitled")}));
}

void tst_testlist::ListTests_Always_ClearsTheDocument() {
    PutBytes(QStringLiteral("a.vlm"), "[TITLE]Mood[/TITLE]");
    TestDocument test;
    ListTests(test);
    QCOMPARE(test.TestTitle, QString());
    QCOMPARE(test.TestFileName, QString());
    QCOMPARE(test.TestFileText, QString());
}

void tst_testlist::TextOfPart_AnyTest_IsWhatIsShown_data() {
    QTest::addColumn<QString>("test");
    QTest::addColumn<int>("part");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("caption");
    const QString mood = QStringLiteral("[TITLE]Mood[/TITLE][INTRODUCTION]Hello[/INTRODUCTION]"
                                        "[INSTRUCTIONS]Choose<P>one[/INSTRUCTIONS]"
                                        "[Q]One[A]a[v=1][/A][A][v=2][/A][A]c[v=3][/A][/Q][Q]Two[QT]2[/QT][/Q]");
    QTest::newRow("introduction") << mood << 0 << "Hello"
                                  << "Mood - Introduction";
    QTest::newRow("instructions") << mood << 1 << "Choose\r\none"
                                  << "Mood - Instructions";
    QTest::newRow("questions") << mood << 2
                               << "INSTRUCTIONS\r\nChoose\r\none\r\n"
                                  "QUESTION 1\r\nOne\r\n[ ] a\r\n[ ] c\r\n\r\nQUESTION 2\r\nTwo\r\n\r\n"
                               << "Mood - Questions";
    QTest::newRow("no instructions") << "[Q]One[/Q]" << 2 << "QUESTION 1\r\nOne\r\n\r\n"
                                     << "Untitled - Questions";
    QTest::newRow("no questions") << "[TITLE]Bare[/TITLE]" << 2 << ""
                                  << "Bare - Questions";
}

void tst_testlist::TextOfPart_AnyTest_IsWhatIsShown() {
    QFETCH(QString, test);
    QFETCH(int, part);
    const TestDocument document = TestFromText(test);
    QTEST(TextOfPart(document, static_cast<TestPart>(part)), "text");
    QTEST(CaptionOfPart(document, static_cast<TestPart>(part)), "caption");
}

void tst_testlist::TextOfPart_TemplateWithElevenAnswers_ShowsTen() {
    QString test = QStringLiteral("[TEMPLATE]");
    for (int a = 1; a <= 11; ++a)
        test += QStringLiteral("[A]answer %1[v=1][/A]").arg(a);
    // The one question has answers of its own; the template only raises the number of answers to look at.
    const TestDocument document = TestFromText(test + QStringLiteral("[/TEMPLATE][Q]One[A]own[v=1][/A][/Q]"));
    QCOMPARE(document.MaxAnswerCount, 11);
    QCOMPARE(TextOfPart(document, TestPart::Questions), QStringLiteral("QUESTION 1\r\nOne\r\n[ ] own\r\n\r\n"));
}

QTEST_GUILESS_MAIN(tst_testlist)
#include "tst_testlist.moc"
