// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Configuration.h>
#include <AudioAnalyzer/config/PredefinedProfile.h>

Configuration::Configuration()
    : m_profiles(PredefinedProfile::getList()), m_selectedProfile(m_profiles.constFirst())
{
    _SelectDefaultProfile();
}

// Intended: language and selected device stay empty, whatever the other one holds.
Configuration::Configuration(const Configuration& pOther)
    : m_averageVolumeCalculationDuration(pOther.m_averageVolumeCalculationDuration),
      m_bpmCalculationDuration(pOther.m_bpmCalculationDuration),
      m_displaySpeakers(pOther.m_displaySpeakers), m_displayStopped(pOther.m_displayStopped),
      m_displayVirtualBeatsWhenStopped(pOther.m_displayVirtualBeatsWhenStopped),
      m_grayMode(pOther.m_grayMode), m_isModified(pOther.m_isModified),
      m_normalizationDuration(pOther.m_normalizationDuration),
      m_normalizationThreshold(pOther.m_normalizationThreshold),
      m_profiles(PredefinedProfile::getList()), m_selectedProfile(m_profiles.constFirst()),
      m_stopDetectionDuration(pOther.m_stopDetectionDuration),
      m_stopDetectionThreshold(pOther.m_stopDetectionThreshold), m_threshold(pOther.m_threshold),
      m_topMost(pOther.m_topMost)
{
    _AppendUserProfiles(pOther.m_profiles);
    _SelectEqualProfile(pOther.m_selectedProfile);
}

Configuration::~Configuration() = default;

template <typename Value>
bool Configuration::_Store(Value& pMember, Value pValue)
{
    // NaN equals nothing, itself included: storing it counts as a change every time.
    if (pMember == pValue)
        return false;
    pMember = pValue;
    m_isModified = true;
    return true;
}

double Configuration::getAverageVolumeCalculationDuration() const
{
    return m_averageVolumeCalculationDuration;
}

double Configuration::getBPMCalculationDuration() const
{
    return m_bpmCalculationDuration;
}

bool Configuration::getDisplaySpeakers() const
{
    return m_displaySpeakers;
}

bool Configuration::getDisplayVirtualBeatsWhenStopped() const
{
    return m_displayVirtualBeatsWhenStopped;
}

bool Configuration::getGrayMode() const
{
    return m_grayMode;
}

const QString& Configuration::getLanguage() const
{
    return m_language;
}

double Configuration::getNormalizationDuration() const
{
    return m_normalizationDuration;
}

short Configuration::getNormalizationThreshold() const
{
    return m_normalizationThreshold;
}

double Configuration::getStopDetectionDuration() const
{
    return m_stopDetectionDuration;
}

short Configuration::getStopDetectionThreshold() const
{
    return m_stopDetectionThreshold;
}

short Configuration::getThreshold() const
{
    return m_threshold;
}

bool Configuration::isModified() const
{
    return m_isModified;
}

bool Configuration::isTopMost() const
{
    return m_topMost;
}

bool Configuration::setAverageVolumeCalculationDuration(double pSeconds)
{
    return _Store(m_averageVolumeCalculationDuration, pSeconds);
}

bool Configuration::setBPMCalculationDuration(double pSeconds)
{
    return _Store(m_bpmCalculationDuration, pSeconds);
}

bool Configuration::setDisplaySpeakers(bool pIsDisplayed)
{
    return _Store(m_displaySpeakers, pIsDisplayed);
}

bool Configuration::setDisplayStopped(bool pIsDisplayed)
{
    return _Store(m_displayStopped, pIsDisplayed);
}

bool Configuration::setDisplayVirtualBeatsWhenStopped(bool pIsDisplayed)
{
    return _Store(m_displayVirtualBeatsWhenStopped, pIsDisplayed);
}

bool Configuration::setGrayMode(bool pIsGray)
{
    return _Store(m_grayMode, pIsGray);
}

bool Configuration::setIsModified(bool pIsModified)
{
    m_isModified = pIsModified;
    return true;
}

bool Configuration::setLanguage(const QString& pLanguage)
{
    if (m_language.compare(pLanguage, Qt::CaseInsensitive) == 0)
        return false;
    m_language = pLanguage.isEmpty() ? QString() : pLanguage;
    m_isModified = true;
    return true;
}

bool Configuration::setNormalizationDuration(double pSeconds)
{
    return _Store(m_normalizationDuration, pSeconds);
}

bool Configuration::setNormalizationThreshold(short pThreshold)
{
    return _Store(m_normalizationThreshold, pThreshold);
}

bool Configuration::setStopDetectionDuration(double pSeconds)
{
    return _Store(m_stopDetectionDuration, pSeconds);
}

bool Configuration::setStopDetectionThreshold(short pThreshold)
{
    return _Store(m_stopDetectionThreshold, pThreshold);
}

bool Configuration::setThreshold(short pThreshold)
{
    // A file may bring any negative value; each of them is automatic already.
    const bool staysAutomatic = pThreshold < 0 && m_threshold < 0;
    return !staysAutomatic &&
           _Store(m_threshold, pThreshold < 0 ? kAutomaticThreshold : pThreshold);
}

bool Configuration::setTopMost(bool pIsTopMost)
{
    return _Store(m_topMost, pIsTopMost);
}
