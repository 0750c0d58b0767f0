#include "testdoc/FileLayout.h"

#include "base/Text.h"

#include <algorithm>

FileLayout::FileLayout(const QString& fileText) : lineStarts_{0} {
    text_.reserve(fileText.size());
    offsets_.reserve(static_cast<size_t>(fileText.size()));
    for (int i = 0; i < fileText.size(); ++i) {
        const QChar c = fileText[i];
        if (c != u'\r' && c != u'\n') {
            text_ += c;
            offsets_.push_back(i);
        } else if (c == u'\n' || i + 1 == fileText.size() || fileText[i + 1] != u'\n') {
            lineStarts_.push_back(i + 1);
        }
    }
    upper_ = AsciiUpper(text_);
}

FileElement FileLayout::Find(const QString& name, const FileSpan& in) const {
    if (!in.Exists)
        return {};
    const QString opening = u'[' + name + u']';
    const QString closing = QStringLiteral("[/") + name + u']';
    const auto begin = static_cast<int>(upper_.indexOf(opening, in.Begin));
    if (begin < 0 || begin >= in.End)
        return {};
    const int content = begin + static_cast<int>(opening.size());
    const auto end = static_cast<int>(upper_.indexOf(closing, content));
    if (end < 0 || end >= in.End)
        return {};
    return {{content, end, true}, {begin, end + static_cast<int>(closing.size()), true}};
}

std::vector<FileElement> FileLayout::FindAll(const QString& name, const FileSpan& in) const {
    std::vector<FileElement> elements;
    for (FileElement element = Find(name, in); element.Whole.Exists;
         element = Find(name, {element.Whole.End, in.End, true}))
        elements.push_back(element);
    return elements;
}

FileElement FileLayout::Nth(const QString& name, const FileSpan& in, int n) const {
    const std::vector<FileElement> elements = FindAll(name, in);
    return n >= 1 && static_cast<size_t>(n) <= elements.size() ? elements[static_cast<size_t>(n - 1)] : FileElement{};
}

FileElement FileLayout::ElementOf(const TestPlace& place) const {
    switch (place.What) {
    case TestPlace::Whole:
        return {};
    case TestPlace::Title:
        return Find(QStringLiteral("TITLE"), All());
    case TestPlace::Introduction:
        return Find(QStringLiteral("INTRODUCTION"), All());
    case TestPlace::Instructions:
        return Find(QStringLiteral("INSTRUCTIONS"), All());
    case TestPlace::CompletionMessage:
        return Find(QStringLiteral("COMPLETION MESSAGE"), All());
    case TestPlace::Subscale:
        return Nth(QStringLiteral("S"), Find(QStringLiteral("SUBSCALES"), All()).Content, place.Index);
    case TestPlace::SubscaleRange:
        return Nth(QStringLiteral("SIG"), ElementOf({TestPlace::Subscale, place.Index, 0}).Content, place.SubIndex);
    case TestPlace::TotalRange:
        return Nth(QStringLiteral("SIG"), Find(QStringLiteral("TOTAL"), All()).Content, place.SubIndex);
    case TestPlace::TemplateAnswer:
        return Nth(QStringLiteral("A"), Find(QStringLiteral("TEMPLATE"), All()).Content, place.SubIndex);
    case TestPlace::Question:
        return Nth(QStringLiteral("Q"), All(), place.Index);
    case TestPlace::Answer: {
        const FileElement question = ElementOf({TestPlace::Question, place.Index, 0});
        const FileElement answer = Nth(QStringLiteral("A"), question.Content, place.SubIndex);
        return answer.Whole.Exists ? answer : question;
    }
    case TestPlace::ReportDirectory:
        return Find(QStringLiteral("REPORT DIR"), All());
    case TestPlace::ExcelDirectory:
        return Find(QStringLiteral("EXCEL DIR"), All());
    case TestPlace::ExcelFileName:
        return Find(QStringLiteral("EXCEL FILE NAME"), All());
    case TestPlace::AutosaveFileName:
        return Find(QStringLiteral("AUTOSAVE FILENAME"), All());
    }
    return {};
}

int FileLayout::LineOf(int position) const {
    if (offsets_.empty())
        return 1;
    const int offset = offsets_[std::min(static_cast<size_t>(position), offsets_.size() - 1)];
    return static_cast<int>(std::upper_bound(lineStarts_.begin(), lineStarts_.end(), offset) - lineStarts_.begin());
}

int FileLayout::ColumnOf(int position) const {
    if (offsets_.empty())
        return 1;
    const int offset = offsets_[std::min(static_cast<size_t>(position), offsets_.size() - 1)];
    return offset - lineStarts_[static_cast<size_t>(LineOf(position) - 1)] + 1;
}

FileSpan FileLayout::Trimmed(FileSpan span) const {
    while (span.Begin < span.End && text_[span.Begin].isSpace())
        ++span.Begin;
    while (span.End > span.Begin && text_[span.End - 1].isSpace())
        --span.End;
    return span;
}

bool FileLayout::LosesLineEnd(const FileSpan& span) const {
    const FileSpan inner = Trimmed(span);
    return inner.End > inner.Begin && LineOf(inner.Begin) != LineOf(inner.End - 1);
}
