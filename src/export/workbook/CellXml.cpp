#include "export/workbook/CellXml.h"

#include "export/workbook/CellReference.h"

#include <QRegularExpression>

namespace {

/// The day before the first one, and the first day from which the numbers are right: the calendar from 1900 has a
/// 29 February 1900 that never was.
QDate DayZero(bool from1904) { return from1904 ? QDate(1904, 1, 1) : QDate(1899, 12, 30); }
QDate FirstDay(bool from1904) { return from1904 ? QDate(1904, 1, 1) : QDate(1900, 3, 1); }

const QRegularExpression& EscapedCharacter() {
    static const QRegularExpression expression(QStringLiteral("_x([0-9A-Fa-f]{4})_"));
    return expression;
}

bool FitsXml(const QString& text, qsizetype i) {
    const QChar c = text[i];
    if (c.isHighSurrogate())
        return i + 1 < text.size() && text[i + 1].isLowSurrogate();
    if (c.isLowSurrogate())
        return i > 0 && text[i - 1].isHighSurrogate();
    return c == u'\t' || c == u'\n' || (c.unicode() >= 0x20 && c.unicode() < 0xFFFE);
}

/// What XML can't hold is written as "_xHHHH_", and a text that already looks like that gets its first "_" so written.
QString Escaped(const QString& text) {
    QString escaped;
    escaped.reserve(text.size() + 16);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool looksEscaped =
            c == u'_' &&
            EscapedCharacter().match(QStringView(text).sliced(i).first(qMin<qsizetype>(7, text.size() - i))).hasMatch();
        if (looksEscaped || !FitsXml(text, i))
            escaped += QStringLiteral("_x") + QString::number(c.unicode(), 16).toUpper().rightJustified(4, u'0') + u'_';
        else if (c == u'&')
            escaped += QStringLiteral("&amp;");
        else if (c == u'<')
            escaped += QStringLiteral("&lt;");
        else if (c == u'>')
            escaped += QStringLiteral("&gt;");
        else
            escaped += c;
    }
    return escaped;
}

QByteArray Digits(double number) {
    const auto whole = static_cast<qint64>(number);
    return static_cast<double>(whole) == number ? QByteArray::number(whole) : QByteArray::number(number, 'g', 17);
}

QByteArray NumberOfDate(const QDate& date, bool from1904) {
    if (!date.isValid() || date < FirstDay(from1904))
        throw SpreadsheetError(SpreadsheetFailure,
                               QStringLiteral("A workbook can't hold the date %1").arg(date.toString(Qt::ISODate)));
    return QByteArray::number(DayZero(from1904).daysTo(date));
}

} // namespace

QByteArray CellElement(const QByteArray& prefix, int row, int column, int style, const CellValue& value,
                       bool from1904) {
    QByteArray element = '<' + prefix + "c r=\"" + CellName(row, column) + '"';
    if (style >= 0)
        element += " s=\"" + QByteArray::number(style) + '"';
    const auto closed = [&](const QByteArray& digits) {
        return element + "><" + prefix + "v>" + digits + "</" + prefix + "v></" + prefix + "c>";
    };
    if (const double* number = std::get_if<double>(&value))
        return closed(Digits(*number));
    if (const QDate* date = std::get_if<QDate>(&value))
        return closed(NumberOfDate(*date, from1904));
    const QString* text = std::get_if<QString>(&value);
    if (!text || text->isEmpty())
        return element + "/>";
    QString lines = *text;
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    return element + " t=\"inlineStr\"><" + prefix + "is><" + prefix + "t xml:space=\"preserve\">" +
           Escaped(lines).toUtf8() + "</" + prefix + "t></" + prefix + "is></" + prefix + "c>";
}

QDate DateOfNumber(double number, bool from1904) { return DayZero(from1904).addDays(static_cast<qint64>(number)); }

QString WithoutEscapes(const QString& text) {
    if (!text.contains(QStringLiteral("_x")))
        return text;
    QString meant;
    qsizetype from = 0;
    for (auto match = EscapedCharacter().globalMatch(text); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        meant += QStringView(text).sliced(from, found.capturedStart() - from);
        meant += QChar(found.capturedView(1).toUShort(nullptr, 16));
        from = found.capturedEnd();
    }
    return meant.append(QStringView(text).sliced(from));
}
