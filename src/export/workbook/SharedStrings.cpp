#include "export/workbook/SharedStrings.h"

#include "export/workbook/WorkbookError.h"
#include "export/workbook/XmlScanner.h"

using Kind = XmlScanner::Kind;

namespace {

/// There may be millions of texts, and so only every so many-th is noted.
constexpr qsizetype NotedEvery = 16;

} // namespace

SharedStrings::SharedStrings(const QByteArray& xml) : xml_(xml) {
    XmlScanner scanner(xml_);
    bool inTable = false;
    for (Kind kind = scanner.Next(); kind != Kind::Finished; kind = scanner.Next()) {
        if (kind != Kind::Start)
            continue;
        if (!inTable) {
            inTable = scanner.LocalName() == "sst";
            continue;
        }
        if (scanner.LocalName() == "si" && count_++ % NotedEvery == 0)
            entries_.push_back(static_cast<quint32>(scanner.Begin()));
        scanner.SkipElement();
    }
}

QString SharedStrings::At(qsizetype index) const {
    if (index < 0 || index >= count_)
        throw WorkbookError(QStringLiteral("a cell refers to a shared text that isn't there"));
    XmlScanner scanner(xml_, entries_[static_cast<size_t>(index / NotedEvery)]);
    scanner.Next();
    for (qsizetype before = index % NotedEvery; before > 0;) {
        scanner.SkipElement();
        while (scanner.Next() != Kind::Start) {
        }
        before -= scanner.LocalName() == "si" ? 1 : 0;
    }
    QString text;
    if (scanner.SelfClosing())
        return text;
    bool inText = false;
    for (Kind kind = scanner.Next(); kind != Kind::Finished; kind = scanner.Next()) {
        if (kind == Kind::Text) {
            if (inText)
                text += scanner.Text();
        } else if (kind == Kind::End && scanner.LocalName() == "si") {
            break;
        } else if (kind == Kind::Start && scanner.LocalName() == "rPh") {
            scanner.SkipElement(); // How the text is spoken.
        } else {
            inText = kind == Kind::Start && scanner.LocalName() == "t" && !scanner.SelfClosing();
        }
    }
    return text;
}
