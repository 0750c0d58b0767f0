#include "editor/TestSnapshot.h"

#include "editor/EntryEdits.h"

#include <QDataStream>
#include <QIODevice>

namespace {

constexpr quint32 Mark = 0x56'4C'4D'31; // "VLM1"

QDataStream& operator<<(QDataStream& stream, const Value& value) {
    const qint8 kind = value.IsEmpty() ? 0 : value.IsNumber() ? 1 : 2;
    return stream << kind << (value.IsEmpty() ? QStringLiteral("") : value.Text());
}

QDataStream& operator>>(QDataStream& stream, Value& value) {
    qint8 kind = 0;
    QString text;
    stream >> kind >> text;
    value = kind == 0 ? Value() : kind == 1 ? Value(text.toInt()) : Value(text);
    return stream;
}

class Out {
  public:
    explicit Out(QByteArray& bytes) : stream_(&bytes, QIODevice::WriteOnly) { stream_.setVersion(QDataStream::Qt_6_0); }
    template <typename T> void Field(const T& field) { stream_ << field; }
    // The stream would tell a text that was never assigned from an empty one.
    void Field(const QString& text) { stream_ << (text.isNull() ? QStringLiteral("") : text); }
    void Count(const int& count, int) { stream_ << count; }

  private:
    QDataStream stream_;
};

class In {
  public:
    explicit In(const QByteArray& bytes) : stream_(bytes) { stream_.setVersion(QDataStream::Qt_6_0); }
    template <typename T> void Field(T& field) { stream_ >> field; }
    void Count(int& count, int bound) {
        stream_ >> count;
        if (count < 0 || count > bound)
            stream_.setStatus(QDataStream::ReadCorruptData);
        if (!Good())
            count = 0;
    }
    bool Good() const { return stream_.status() == QDataStream::Ok; }
    bool AtEnd() const { return stream_.atEnd(); }

  private:
    QDataStream stream_;
};

/// One order of the fields for both ways.
template <typename Document, typename Stream> void VisitScales(Document& test, Stream& stream) {
    stream.Count(test.SubscaleCount, MaxSubscales);
    for (int s = 1; s <= test.SubscaleCount; ++s) {
        stream.Field(test.SubscaleName(s));
        stream.Count(test.SubscaleRangeCount(s), MaxRanges);
        for (int r = 1; r <= test.SubscaleRangeCount(s); ++r) {
            stream.Field(test.SubscaleRangeLow(s, r));
            stream.Field(test.SubscaleRangeHigh(s, r));
            stream.Field(test.SubscaleRangeText(s, r));
        }
    }
    stream.Count(test.TotalRangeCount, MaxRanges);
    for (int r = 1; r <= test.TotalRangeCount; ++r) {
        stream.Field(test.TotalRangeLow(r));
        stream.Field(test.TotalRangeHigh(r));
        stream.Field(test.TotalRangeText(r));
    }
}

template <typename Document, typename Stream> void VisitQuestions(Document& test, Stream& stream) {
    stream.Count(test.TemplateAnswerCount, MaxTemplateAnswers);
    for (int i = 1; i <= test.TemplateAnswerCount; ++i) {
        stream.Field(test.TemplateAnswerText(i));
        stream.Field(test.TemplateAnswerValue(i));
    }
    stream.Count(test.QuestionCount, MaxQuestions);
    for (int q = 1; q <= test.QuestionCount; ++q) {
        stream.Field(test.QuestionText(q));
        stream.Field(test.QuestionType(q));
        stream.Field(test.QuestionSubscale(q));
        if (q <= MaxQuestionsWithAnswers)
            stream.Count(test.AnswerCount(q), MaxAnswers);
        for (int a = 1; a <= MaxAnswers; ++a) {
            stream.Field(test.AnswerText(q, a));
            stream.Field(test.AnswerValue(q, a));
        }
    }
}

template <typename Document, typename Stream> void Visit(Document& test, Stream& stream) {
    for (auto* text : {&test.TestFileName, &test.TestBaseName, &test.TestTitle, &test.TestIntroduction,
                       &test.TestInstructions, &test.TestCompletionMessage, &test.ReportDirectory, &test.ExcelDirectory,
                       &test.ExcelFileName, &test.AutosaveFileName})
        stream.Field(*text);
    VisitScales(test, stream);
    VisitQuestions(test, stream);
    stream.Field(test.ReportOnlyWhenDone);
    stream.Field(test.NavigationButtons);
    for (int i = 1; i <= OptionCount; ++i)
        stream.Field(test.TestOption(i));
}

template <typename Entry, typename Stream> void VisitTyped(Entry& typed, Stream& stream) {
    stream.Field(typed.Place.Index);
    stream.Field(typed.Place.SubIndex);
    for (auto* text : {&typed.Boxes.Text, &typed.Boxes.Number, &typed.Boxes.High})
        stream.Field(*text);
    stream.Field(typed.Boxes.Type);
}

constexpr int MostTypedEntries = 100;
constexpr int NoSubscale = -1;

void WriteTyped(const TypedEntries& typed, Out& out) {
    // None of them leave the snapshot as it was before there were any.
    if (typed.empty())
        return;
    out.Field(static_cast<int>(typed.size()));
    for (const TypedEntry& entry : typed) {
        out.Field(static_cast<int>(entry.Place.What));
        VisitTyped(entry, out);
        out.Field(entry.Boxes.Subscale.value_or(NoSubscale));
    }
}

TypedEntries ReadTyped(In& in) {
    TypedEntries typed;
    int count = 0;
    if (!in.AtEnd())
        in.Count(count, MostTypedEntries);
    for (int i = 0; i < count && in.Good(); ++i) {
        TypedEntry entry;
        int what = 0;
        int subscale = NoSubscale;
        in.Field(what);
        VisitTyped(entry, in);
        in.Field(subscale);
        entry.Place.What = static_cast<TestPlace::Kind>(what);
        if (subscale >= 0)
            entry.Boxes.Subscale = subscale;
        typed.push_back(entry);
    }
    return typed;
}

bool HasOwner(const TestPlace& place, const TestDocument& test) {
    switch (place.What) {
    case TestPlace::Answer:
        return place.Index >= 0 && place.Index <= test.QuestionCount;
    case TestPlace::SubscaleRange:
        return place.Index >= 0 && place.Index <= test.SubscaleCount;
    default:
        return place.What == TestPlace::Question || place.What == TestPlace::TemplateAnswer ||
               place.What == TestPlace::Subscale || place.What == TestPlace::TotalRange;
    }
}

} // namespace

QByteArray ToSnapshot(const TestDocument& test, const TypedEntries& typed) {
    QByteArray bytes;
    Out out(bytes);
    out.Field(Mark);
    Visit(test, out);
    WriteTyped(typed, out);
    return bytes;
}

bool FromSnapshot(const QByteArray& bytes, TestDocument& test, TypedEntries& typed) {
    In in(bytes);
    quint32 mark = 0;
    in.Field(mark);
    if (mark != Mark)
        return false;
    TestDocument read;
    Visit(read, in);
    TypedEntries entries = ReadTyped(in);
    if (!in.Good() || !in.AtEnd())
        return false;
    std::erase_if(entries, [&](const TypedEntry& entry) { return !HasOwner(entry.Place, read); });
    for (TypedEntry& entry : entries)
        if (const int n = EntryNumber(entry.Place); n < 0 || n > EntryCount(read, entry.Place))
            entry.Place = WithEntryNumber(entry.Place, 0);
    test = read;
    typed = std::move(entries);
    return true;
}
