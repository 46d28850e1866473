// SPDX-License-Identifier: MIT
#include <desktop/settings/detail/ProfileCheck.h>
#include <desktop/settings/detail/ProfileValues.h>

namespace desktop {

QString ProfileCheck::Name(const QString& pName, const QStringList& pTaken)
{
    if (pName.trimmed().isEmpty())
        return tr("Give the profile a name.");
    if (pName.size() > kLongestName)
        return tr("The name has %n character(s) too many.", nullptr, pName.size() - kLongestName);
    if (HasName(pTaken, pName))
        return tr("There is a profile “%1” already; choose another name.").arg(pName.trimmed());
    return {};
}

QString ProfileCheck::Tempos(double pMinimum, double pMaximum)
{
    if (!(pMinimum >= ProfileLimits::kMinimalBPM))
        return tr("The lowest tempo must be at least 1 BPM.");
    if (!(pMaximum <= kMaximalTempo))
        return tr("The highest tempo must be at most %1 BPM.").arg(kMaximalTempo);
    if (!(pMinimum <= pMaximum))
        return tr("The lowest tempo must not be above the highest.");
    return {};
}

QString ProfileCheck::Band(int pLow, int pHigh)
{
    if (pLow >= 0 && pHigh >= 0 && pLow > pHigh)
        return tr("The lower edge must not be above the upper edge.");
    return {};
}

QString ProfileCheck::Sensibility(double pSensibility)
{
    return pSensibility >= ProfileLimits::kMinimalSensibility
               ? QString()
               : tr("The sensibility must be 0 or more.");
}

}  // namespace desktop
