// SPDX-License-Identifier: MIT
#include <shared/outputs/osc/OscTemplate.h>
#include <shared/text/Text.h>

#include <QStringList>

#include <numeric>
#include <utility>

namespace shared {

namespace {

/// The part up to the first blank; pText keeps what follows it.
QString TakeWord(QString& pText)
{
    pText = pText.trimmed();
    const int end = pText.indexOf(QLatin1Char(' '));
    const QString word = pText.left(end);
    pText = end < 0 ? QString() : pText.mid(end + 1).trimmed();
    return word;
}

/// At the commas that no parenthesis holds.
QStringList SplitValues(const QString& pText)
{
    QStringList values;
    int depth = 0;
    int start = 0;
    for (int i = 0; i < pText.size(); ++i) {
        const QChar letter = pText[i];
        depth += letter == QLatin1Char('(') ? 1 : letter == QLatin1Char(')') ? -1 : 0;
        if (letter == QLatin1Char(',') && depth == 0) {
            values.append(pText.mid(start, i - start));
            start = i + 1;
        }
    }
    values.append(pText.mid(start));
    return values;
}

bool ReadEvent(const QString& pWord, OscRule& pRule)
{
    const std::pair<const char*, eOscEvent> events[] = {
        {"beat", eOscBeat}, {"bar", eOscBar}, {"tempo", eOscTempo}, {"playing", eOscPlaying}};
    for (const auto& [name, event] : events) {
        if (pWord != QLatin1String(name))
            continue;
        pRule.event = event;
        return true;
    }
    pRule.event = eOscTick;
    bool isNumber = false;
    pRule.ticks = pWord.mid(4).toInt(&isNumber);
    return pWord.startsWith(QLatin1String("tick")) && isNumber && pRule.ticks >= 1 &&
           pRule.ticks <= OscTemplate::kMostTicks;
}

/// Of printable characters that have no meaning in patterns.
bool IsAddress(const QString& pText)
{
    if (pText.size() < 2 || !pText.startsWith(QLatin1Char('/')))
        return false;
    for (const QChar letter : pText)
        if (letter.unicode() <= ' ' || letter.unicode() > '~' ||
            QStringLiteral("#*,?[]{}").contains(letter))
            return false;
    return true;
}

bool AreTypes(const QString& pText)
{
    for (const QChar letter : pText)
        if (!QStringLiteral("ifdh").contains(letter))
            return false;
    return !pText.isEmpty() && pText.size() <= OscTemplate::kMostValues;
}

/// Returns what is refused, or an empty text.
QString ReadRule(const QString& pItem, OscRule& pRule)
{
    QString rest = pItem;
    const QString when = TakeWord(rest);
    if (!ReadEvent(when, pRule))
        return tr("\"%1\": give a preset, or begin with beat, bar, tempo, playing or tickN")
            .arg(when);
    const QString address = TakeWord(rest);
    if (!IsAddress(address))
        return tr("\"%1\": the address must begin with / and have no blanks or # * , ? [ ] { }")
            .arg(address);
    const QString types = TakeWord(rest);
    if (!AreTypes(types))
        return tr("%1: give a type for each value, at most %2 of i, f, d and h")
            .arg(address)
            .arg(OscTemplate::kMostValues);
    const QStringList values = SplitValues(rest);
    if (values.size() != types.size())
        return tr("%1: give as many values as types, with commas between them").arg(address);
    for (const QString& value : values) {
        QString reason;
        const auto expression = OscExpression::Parse(value.toUtf8(), reason);
        if (!expression)
            return tr("%1: \"%2\": %3").arg(address, value.trimmed(), reason);
        pRule.values.push_back(*expression);
    }
    pRule.address = address.toLatin1();
    pRule.types = types.toLatin1();
    return {};
}

/// With those of a preset in the place of its name.
QStringList ItemsOf(const QString& pText)
{
    QStringList items;
    const auto given = pText.split(QLatin1Char(';'));
    for (const QString& item : given) {
        QString text = item.simplified();
        for (const OscPreset& preset : OscTemplate::getPresets())
            if (item.trimmed().compare(QLatin1String(preset.name), Qt::CaseInsensitive) == 0)
                text = QString::fromLatin1(preset.text);
        items += text.split(QLatin1Char(';'));
    }
    return items;
}

/// Returns what is refused, or an empty text.
QString ReadItems(const QString& pText, OscTemplate& pTemplate)
{
    const QStringList items = ItemsOf(pText);
    for (const QString& item : items) {
        const QString text = item.simplified();
        if (text == QLatin1String("bundle"))
            pTemplate.isBundled = true;
        if (text.isEmpty() || text == QLatin1String("bundle"))
            continue;
        OscRule rule;
        const QString refusal = ReadRule(text, rule);
        if (!refusal.isEmpty())
            return refusal;
        pTemplate.rules.push_back(std::move(rule));
    }
    return {};
}

}  // namespace

std::optional<OscTemplate> OscTemplate::Parse(const QString& pText, QString& pReason)
{
    OscTemplate result;
    pReason = pText.size() > kLongest ? tr("the messages are too long") : ReadItems(pText, result);
    if (!pReason.isEmpty())
        return std::nullopt;
    if (result.rules.empty() || result.rules.size() > kMostRules) {
        pReason = tr("give 1 to %1 messages").arg(kMostRules);
        return std::nullopt;
    }
    for (const OscRule& rule : result.rules) {
        result.division = std::lcm(result.division, rule.ticks);
        if (result.division > kMostTicks) {
            pReason =
                tr("the numbers of ticks a beat have no common multiple up to %1").arg(kMostTicks);
            return std::nullopt;
        }
    }
    return result;
}

const std::vector<OscPreset>& OscTemplate::getPresets()
{
    static const std::vector<OscPreset> presets = {
        {"plain",
         "bundle; tempo /tempo f bpm; beat /beat iff beat, bpm, confidence; bar /bar i bar; "
         "playing /playing i playing",
         9000},
        {"resolume",
         "tempo /composition/tempocontroller/tempo f max(0, min(1, (bpm - 20) / 480)); "
         "bar /composition/tempocontroller/resync i 1",
         7000},
        {"chromatik", "tempo /lx/tempo/bpm f bpm; beat /lx/tempo/beat-within-bar i count", 3030},
        {"grandma3", "tempo /Page1/Fader201 f min(100, sqrt(bpm / 240) * 100)", 8000},
        {"wled", "beat /wled/bpm f bpm", 12000},
        {"touchdesigner",
         "bundle; beat /bpm f bpm; beat /beat f beat; beat /count f count; bar /bar f bar; "
         "beat /confidence f confidence; tick12 /phase f phase; playing /playing f playing",
         10000},
        // A channel that is up for the first half of the beat, and one for that of the bar's first.
        {"qlcplus",
         "tick2 /beat f 1 - 2 * phase; tick2 /one f max(0, 2 - count) * (1 - 2 * phase); "
         "beat /bpm f max(0, min(1, (bpm - 20) / 480)); playing /beat f 0; playing /one f 0",
         7700}};
    return presets;
}

}  // namespace shared
