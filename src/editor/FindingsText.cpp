#include "editor/FindingsText.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>

namespace {

QString Counted(qsizetype count, const QString& thing) {
    return QString::number(count) + u' ' + thing + (count == 1 ? QString() : QStringLiteral("s"));
}

bool IsError(const Finding& finding) { return finding.Level == Severity::Error; }

bool Within(int number, int count) { return number >= 1 && number <= count; }

} // namespace

QString FindingLine(const Finding& finding) {
    return (finding.Where.isEmpty() ? finding.Text : finding.Where + QStringLiteral(": ") + finding.Text).simplified();
}

QString FindingsSummary(const std::vector<Finding>& findings) {
    if (findings.empty())
        return QStringLiteral("Nothing to note");
    const auto errors = std::count_if(findings.begin(), findings.end(), IsError);
    const auto warnings = static_cast<std::ptrdiff_t>(findings.size()) - errors;
    QStringList counts;
    if (errors > 0)
        counts.append(Counted(errors, QStringLiteral("error")));
    if (warnings > 0)
        counts.append(Counted(warnings, QStringLiteral("warning")));
    const auto first = errors > 0 ? std::find_if(findings.begin(), findings.end(), IsError) : findings.begin();
    return counts.join(QStringLiteral(", ")) + QStringLiteral(" \u00B7 ") + FindingLine(*first);
}

std::vector<Finding> ErrorsFirst(std::vector<Finding> findings) {
    std::stable_partition(findings.begin(), findings.end(), IsError);
    return findings;
}

QString LengthUsedText(int lengthUsed) {
    const QLocale grouped(QLocale::English);
    return grouped.toString(lengthUsed) + QStringLiteral(" of ") + grouped.toString(MaxTestFileLength) +
           QStringLiteral(" characters");
}

bool PlaceExists(const TestPlace& place, const TestDocument& test) {
    switch (place.What) {
    case TestPlace::Subscale:
        return Within(place.Index, test.SubscaleCount);
    case TestPlace::SubscaleRange:
        return Within(place.Index, test.SubscaleCount) && Within(place.SubIndex, test.SubscaleRangeCount(place.Index));
    case TestPlace::TotalRange:
        return Within(place.SubIndex, test.TotalRangeCount);
    case TestPlace::TemplateAnswer:
        return Within(place.SubIndex, test.TemplateAnswerCount);
    case TestPlace::Question:
        return Within(place.Index, test.QuestionCount);
    case TestPlace::Answer:
        return Within(place.Index, std::min(test.QuestionCount, MaxQuestionsWithAnswers)) &&
               Within(place.SubIndex, test.AnswerCount(place.Index));
    default:
        return true;
    }
}
