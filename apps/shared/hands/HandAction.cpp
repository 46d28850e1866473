// SPDX-License-Identifier: MIT
#include <shared/hands/HandAction.h>

#include <cmath>

namespace shared {

namespace {

struct ActionForm
{
    HandAction::eKind kind;
    const char* name;
    const char* form;
    double most;  ///< of the amount; 0 = it has none
};

constexpr ActionForm kForms[] = {
    {HandAction::eTap, "tap", "tap", 0.0},
    {HandAction::eOne, "one", "one", 0.0},
    {HandAction::eHalf, "half", "half", 0.0},
    {HandAction::eDouble, "double", "double", 0.0},
    {HandAction::eHold, "hold", "hold", 0.0},
    {HandAction::eReset, "reset", "reset", 0.0},
    {HandAction::eNudge, "nudge", "nudge MS", 500.0},
    {HandAction::eBend, "bend", "bend PERCENT", 50.0},
    {HandAction::eOffset, "offset", "offset MS", 500.0},
    {HandAction::eProfile, "profile", "profile NAME", 0.0},
};

}  // namespace

std::optional<HandAction> HandAction::Parse(const QString& pText)
{
    const QString text = pText.simplified();
    const QString word = text.section(QLatin1Char(' '), 0, 0);
    const QString rest = text.section(QLatin1Char(' '), 1);
    for (const ActionForm& form : kForms) {
        if (word.compare(QLatin1String(form.name), Qt::CaseInsensitive) != 0)
            continue;
        if (form.kind == eProfile)
            return rest.isEmpty() ? std::nullopt : std::optional(HandAction{eProfile, 0.0, rest});
        bool isNumber = rest.isEmpty();
        const double amount = rest.isEmpty() ? 0.0 : rest.toDouble(&isNumber);
        const bool isWanted = form.most > 0.0;
        if (!isNumber || rest.isEmpty() == isWanted || !(std::abs(amount) <= form.most) ||
            (isWanted && amount == 0.0))
            return std::nullopt;
        return HandAction{form.kind, amount, {}};
    }
    return std::nullopt;
}

QString HandAction::getText() const
{
    for (const ActionForm& form : kForms) {
        if (form.kind != kind)
            continue;
        const QString word = QLatin1String(form.name);
        if (kind == eProfile)
            return word + QLatin1Char(' ') + name;
        return form.most > 0.0 ? word + QLatin1Char(' ') + QString::number(amount) : word;
    }
    return {};
}

QStringList HandAction::getForms()
{
    QStringList forms;
    for (const ActionForm& form : kForms)
        forms << QLatin1String(form.form);
    return forms;
}

}  // namespace shared
