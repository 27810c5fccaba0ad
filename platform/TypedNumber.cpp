// SPDX-FileCopyrightText: 2026 Provender developers
// SPDX-License-Identifier: MIT

#include "platform/TypedNumber.h"

#include "platform/NumberText.h"

#include <QRegularExpression>

namespace {

// "1½" as "1 1/2 ", so that no digit after it becomes a part of it.
QString withSlashes(const QString &text)
{
    QString spelt;
    for (const QChar c : text)
        spelt += c.decompositionTag() == QChar::Fraction ? u' ' + c.decomposition() + u' ' : QString(c);
    return spelt.replace(QChar(u'\u2044'), u'/');
}

QString shortest(double value)
{
    constexpr int decimals = 9; // of which a float keeps what it can
    QString text = NumberText::fixed(value, decimals);
    while (text.endsWith(u'0'))
        text.chop(1);
    if (text.endsWith(u'.'))
        text.chop(1);
    return text;
}

} // namespace

QString TypedNumber::withPeriod(const QString &text)
{
    static const QRegularExpression comma(QStringLiteral("^\\s*(\\d*),(\\d{1,2})\\s*$"));
    const QRegularExpressionMatch decimal = comma.match(text);
    if (decimal.hasMatch())
        return decimal.captured(1) + u'.' + decimal.captured(2);

    static const QRegularExpression slash(QStringLiteral("^\\s*(?:(\\d{1,6})\\s+)?(\\d{1,6})\\s*/\\s*(\\d{1,6})\\s*$"));
    const QRegularExpressionMatch fraction = slash.match(withSlashes(text));
    const int parts = fraction.captured(3).toInt();
    if (!fraction.hasMatch() || parts == 0)
        return text;
    return shortest(fraction.captured(1).toInt() + double(fraction.captured(2).toInt()) / parts);
}
