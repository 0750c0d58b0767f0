#include "export/HtmlPage.h"

#include "base/Text.h"
#include "platform/CodePage.h"
#include "platform/NamedEncoding.h"
#include "platform/SafeFile.h"
#include "platform/Windows1252.h"
#include "settings/Settings.h"

#include <QLocale>
#include <QRegularExpression>

namespace {

/// A page past this many bytes is refused without being read.
constexpr qint64 MaxHostBytes = 64 << 20;

const QString BodyTag = QStringLiteral("<body bgcolor='#FFFFFF' text='#000080'>");

/// A text as it stands in an element or an attribute.
QString Escaped(const QString& text) { return text.toHtmlEscaped().replace(u'\'', QStringLiteral("&#39;")); }

const QString CreditBegin = QStringLiteral("<p align='center'>Test Created By <a href='");
const QString CreditEnd = QStringLiteral("'>Vellumo</a>.</p></body></html>");

/// The mark that the templates which come with the program put before ("begins") or after ("ends") all of a test.
QString Mark(const QString& name, QLatin1String place) {
    return QStringLiteral("<!-- ") + name + u' ' + place + QStringLiteral(" -->");
}

/// The name in the first mark that begins a test; "" when there is none.
QString MarkedName(const QString& page) {
    static const QRegularExpression begin(QStringLiteral("<!-- (vellumo[a-z-]*) begins -->"));
    return begin.match(page).captured(1);
}

/// The page without the tests that were made by the same template as the generated one.
QString WithoutEarlierTest(QString page, const QString& generated) {
    const QString name = MarkedName(generated);
    const QString begin = Mark(name, QLatin1String("begins"));
    const QString end = Mark(name, QLatin1String("ends"));
    for (qsizetype at = page.indexOf(begin); at >= 0; at = page.indexOf(begin, at)) {
        const qsizetype last = page.indexOf(end, at);
        if (last < 0)
            break;
        page.remove(at, last + end.size() - at);
    }
    return page;
}

/// The encoding that the first meta element with one names, in lower case; "" when there is none. Comments don't count.
QString DeclaredEncoding(const QString& page) {
    static const QRegularExpression declaration(
        QStringLiteral("<!--.*?-->|<meta\\b[^>]*\\bcharset\\s*=\\s*[\"']?\\s*([^\\s\"'/>;]+)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    for (auto match = declaration.globalMatch(page); match.hasNext();)
        if (const QString name = match.next().captured(1).toLower(); !name.isEmpty())
            return name;
    return {};
}

bool IsUtf8(const QString& name) {
    // What declares UTF-16 in a page that could be read byte by byte is taken for UTF-8 by browsers.
    return name == QStringLiteral("utf-8") || name == QStringLiteral("utf8") ||
           name.startsWith(QStringLiteral("utf-16"));
}

/// The names under which browsers know windows-1252.
bool IsWindows1252(const QString& name) {
    static const QStringList names{QStringLiteral("windows-1252"), QStringLiteral("cp1252"),
                                   QStringLiteral("x-cp1252"),     QStringLiteral("iso-8859-1"),
                                   QStringLiteral("iso8859-1"),    QStringLiteral("iso_8859-1"),
                                   QStringLiteral("latin1"),       QStringLiteral("l1"),
                                   QStringLiteral("us-ascii"),     QStringLiteral("ascii")};
    return names.contains(name);
}

/// The bytes that an encoder of a single-byte page gives, or nothing when a character doesn't fit it.
std::optional<QByteArray> Fitting(QByteArray (*encode)(const QString&, bool*), const QString& text) {
    bool fits = false;
    const QByteArray bytes = encode(text, &fits);
    return fits ? std::optional(bytes) : std::nullopt;
}

} // namespace

bool IsLanguageTag(const QString& text) {
    static const QRegularExpression tag(QStringLiteral("\\A[A-Za-z]{1,8}(-[A-Za-z0-9]{1,8})*\\z"));
    return tag.match(text).hasMatch();
}

QString PageLanguage(const QString& chosen) { return IsLanguageTag(chosen) ? chosen : QLocale::system().bcp47Name(); }

QString NewPage(const QString& title, const QString& generated, const QString& language) {
    return QStringLiteral("<html lang=\"") + Escaped(language) + QStringLiteral("\"><head><title>") + Escaped(title) +
           QStringLiteral("</title></head>") + BodyTag + generated + CreditBegin +
           Escaped(QLatin1String(HomePageAddress)) + CreditEnd;
}

PageOrigin OriginOf(const QString& page) {
    // The address in the last line isn't looked at: it may be another version's.
    if (page.contains(BodyTag) && page.contains(CreditBegin) && page.trimmed().endsWith(CreditEnd))
        return PageOrigin::Vellumo;
    // The second is what versions without the marks made.
    const bool holdsTest = !MarkedName(page).isEmpty() || page.contains(QStringLiteral("<main id=\"vellumo"));
    return holdsTest ? PageOrigin::HoldsTest : PageOrigin::Elsewhere;
}

Result ReadHostPage(const QString& path, HostPage& host) {
    TextOfFile file;
    if (const Result read = ReadTextFile(path, MaxHostBytes, file); !read)
        return Result::Failed(QStringLiteral("Can't read the page '") + path + QStringLiteral("': ") + read.Message());
    const QString declared = DeclaredEncoding(file.Text);
    if (file.Encoding == TextEncoding::CodePage && IsWindows1252(declared)) {
        file.Text = DecodeWindows1252(file.Bytes);
    } else if (file.Encoding == TextEncoding::CodePage && !declared.isEmpty() && !IsUtf8(declared)) {
        if (const auto text = DecodeNamed(file.Bytes, declared); text && !text->isEmpty())
            file.Text = *text;
    }
    host = {WithLineBreaks(file.Text), file.Encoding};
    return Result::Done();
}

std::optional<QString> InsertInto(const QString& host, const QString& generated, const InsertionPoint& point) {
    const QString page = WithoutEarlierTest(host, generated);
    const qsizetype found = page.indexOf(point.Text, 0, Qt::CaseInsensitive);
    if (found < 0)
        return std::nullopt;
    const qsizetype at = found + (point.After ? point.Text.size() : 0);
    return page.first(at) + generated + page.sliced(at);
}

QByteArray EncodePage(const QString& text, TextEncoding hostEncoding) {
    const QString declared = DeclaredEncoding(text);
    const QByteArray mark("\xEF\xBB\xBF");
    if (IsUtf8(declared))
        return (hostEncoding == TextEncoding::Utf8WithMark ? mark : QByteArray()) + text.toUtf8();
    std::optional<QByteArray> bytes;
    if (IsWindows1252(declared))
        bytes = Fitting(EncodeWindows1252, text);
    else if (!declared.isEmpty())
        bytes = EncodeNamed(text, declared);
    else if (hostEncoding != TextEncoding::Utf8WithMark)
        bytes = Fitting(EncodeCodePage, text);
    // Where nothing is declared, bytes that would be read as UTF-8 stand for other letters.
    if (bytes && declared.isEmpty() && DecodeText(*bytes).Text != text)
        bytes.reset();
    return bytes.value_or(mark + text.toUtf8());
}

Result WritePage(const QString& path, const QString& text, TextEncoding hostEncoding) {
    return WriteFile(path, EncodePage(text, hostEncoding), Audience::Everybody);
}
