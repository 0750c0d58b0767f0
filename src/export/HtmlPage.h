#pragma once

#include "base/Failure.h"
#include "platform/TextFile.h"

#include <QString>

#include <optional>

/// Whether the text can be a language tag of BCP 47: letters, then groups of letters and digits, with "-" between.
bool IsLanguageTag(const QString& text);

/// The language that a page declares: the chosen one or, where that is empty or no tag, the system's.
QString PageLanguage(const QString& chosen);

/// A page that stands by itself: the generated text between its head and the line that names the program. The title
/// is escaped; the generated text is markup.
QString NewPage(const QString& title, const QString& generated, const QString& language);

/// What Vellumo had to do with a page: nothing, it put a test into it, or it made all of it.
enum class PageOrigin { Elsewhere, HoldsTest, Vellumo };
PageOrigin OriginOf(const QString& page);

/// Where a generated text goes in a page that is already there.
struct InsertionPoint {
    QString Text;
    bool After = false;
};

/// An existing page as text, its lines ended by CR LF.
struct HostPage {
    QString Text;
    TextEncoding Encoding = TextEncoding::CodePage;
};

/// Reads a page, in the encoding that it declares where that is neither UTF-8 nor the code page. Fails with a message
/// that names the file.
Result ReadHostPage(const QString& path, HostPage& host);

/// The host with the generated text before or after the first occurrence of the insertion text, which is found without
/// regard to case. Nothing when it isn't there. A test that an earlier insertion left there goes, when the generated
/// text carries the same marks: two of them in one page work neither of them.
std::optional<QString> InsertInto(const QString& host, const QString& generated, const InsertionPoint& point);

/// The bytes of a page: in the encoding that it declares in a meta element; in the code page when it declares none, or
/// with a byte order mark when the page that it was inserted into had one; and in UTF-8 with a byte order mark when a
/// character would not survive in that encoding.
QByteArray EncodePage(const QString& text, TextEncoding hostEncoding = TextEncoding::CodePage);

/// Writes a page. It may be read by everybody: it is meant to be put on the web.
Result WritePage(const QString& path, const QString& text, TextEncoding hostEncoding);
