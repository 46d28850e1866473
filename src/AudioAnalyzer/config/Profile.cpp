// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/config/Profile.h>

namespace {

constexpr qint16 kDefaultMinimalThreshold = 1000;   // sample magnitude
constexpr qint16 kDefaultMaximalThreshold = 32000;  // sample magnitude
constexpr double kLowestBPM = 1.0;
constexpr double kUnreachedBPM = 1000.0;
constexpr int kNoEdge = -1;  // instead of a filter frequency

}  // namespace

/// What the handles share. Members in alphabetical order.
struct ProfileData
{
    qint32 filterHighFrequency;  // Hz
    qint32 filterLowFrequency;   // Hz
    quint32 id;
    double maximalBPM;
    qint16 maximalThreshold;  // sample magnitude
    double minimalBPM;
    qint16 minimalThreshold;  // sample magnitude
    QString name;
    bool readOnly;
    qint32 referenceCount;
    double sensibility;
    bool serializable;
};

Profile::Profile() : Profile(QString(), 0.0, 0, 0, true, false, 0, 0.0, 0.0) {}

Profile::Profile(const QString& name,
                 double sensibility,
                 int filterLowFrequency,
                 int filterHighFrequency,
                 bool readOnly,
                 bool serializable,
                 unsigned int id,
                 double minimalBPM,
                 double maximalBPM)
    : m_pData(new ProfileData{filterHighFrequency,
                              filterLowFrequency,
                              id,
                              maximalBPM,
                              kDefaultMaximalThreshold,
                              minimalBPM,
                              kDefaultMinimalThreshold,
                              name,
                              readOnly,
                              1,
                              sensibility,
                              serializable})
{
}

Profile::Profile(const Profile& pOther) : Comparable<Profile>(pOther), m_pData(pOther.m_pData)
{
    ++m_pData->referenceCount;
}

Profile& Profile::operator=(const Profile& pOther)
{
    if (this == &pOther)
        return *this;
    // The other handle keeps its record alive, also when it is ours.
    _Release();
    m_pData = pOther.m_pData;
    ++m_pData->referenceCount;
    return *this;
}

Profile::~Profile()
{
    _Release();
}

void Profile::_Release()
{
    if (--m_pData->referenceCount == 0)
        delete m_pData;
}

void Profile::_setID(unsigned int pID)
{
    m_pData->id = pID;
}

int Profile::CompareTo(const Profile& pOther) const
{
    const ProfileData& mine = *m_pData;
    const ProfileData& theirs = *pOther.m_pData;
    if (mine.id == theirs.id)
        return 0;
    if (mine.serializable != theirs.serializable)
        return mine.serializable ? 1 : -1;
    const int names = mine.name.compare(theirs.name, Qt::CaseInsensitive);
    if (names != 0)
        return names < 0 ? -1 : 1;
    return mine.id < theirs.id ? -1 : 1;
}

unsigned int Profile::getID() const
{
    return m_pData->id;
}

const QString& Profile::getName() const
{
    return m_pData->name;
}

int Profile::getFilterLowFrequency() const
{
    return m_pData->filterLowFrequency;
}

int Profile::getFilterHighFrequency() const
{
    return m_pData->filterHighFrequency;
}

double Profile::getMinimalBPM() const
{
    return m_pData->minimalBPM;
}

double Profile::getMaximalBPM() const
{
    return m_pData->maximalBPM;
}

double Profile::getDefaultBPM() const
{
    return (m_pData->minimalBPM + m_pData->maximalBPM) * 0.5;
}

short Profile::getMinimalThreshold() const
{
    return m_pData->minimalThreshold;
}

short Profile::getMaximalThreshold() const
{
    return m_pData->maximalThreshold;
}

double Profile::getSensibility() const
{
    return m_pData->sensibility;
}

bool Profile::isReadOnly() const
{
    return m_pData->readOnly;
}

bool Profile::isSerializable() const
{
    return m_pData->serializable;
}

bool Profile::isDefault() const
{
    return !m_pData->serializable &&
           m_pData->name.contains(QLatin1String("Electro"), Qt::CaseInsensitive);
}

// Every test of a double is written so that NaN, on either side, fails it.

bool Profile::setBPM(double minimal, double maximal)
{
    const bool isOrdered = minimal >= kLowestBPM && maximal >= minimal && maximal < kUnreachedBPM;
    if (m_pData->readOnly || !isOrdered)
        return false;
    m_pData->minimalBPM = minimal;
    m_pData->maximalBPM = maximal;
    return true;
}

// Intended: each single setter also tests the bound that stays, so a profile whose range was never
// set takes a tempo through setBPM() only.

bool Profile::setMinimalBPM(double pMinimal)
{
    return setBPM(pMinimal, m_pData->maximalBPM);
}

bool Profile::setMaximalBPM(double pMaximal)
{
    return setBPM(m_pData->minimalBPM, pMaximal);
}

bool Profile::setMinimalThreshold(short pThreshold)
{
    if (m_pData->readOnly || pThreshold < 0 || pThreshold > m_pData->maximalThreshold)
        return false;
    m_pData->minimalThreshold = pThreshold;
    return true;
}

bool Profile::setMaximalThreshold(short pThreshold)
{
    if (m_pData->readOnly || pThreshold < 0 || pThreshold < m_pData->minimalThreshold)
        return false;
    m_pData->maximalThreshold = pThreshold;
    return true;
}

bool Profile::setSensibility(double pSensibility)
{
    if (m_pData->readOnly || !(pSensibility >= 0.0))
        return false;
    m_pData->sensibility = pSensibility;
    return true;
}

bool Profile::setName(const QString& pName)
{
    if (m_pData->readOnly || pName.trimmed().isEmpty())
        return false;
    m_pData->name = pName;
    return true;
}

bool Profile::setFilterFrequencies(int low, int high)
{
    const bool isReversed = low >= 0 && high >= 0 && low > high;
    if (m_pData->readOnly || isReversed)
        return false;
    m_pData->filterLowFrequency = low < 0 ? kNoEdge : low;
    m_pData->filterHighFrequency = high < 0 ? kNoEdge : high;
    return true;
}

bool Profile::setFilterLowFrequency(int pLow)
{
    return setFilterFrequencies(pLow, m_pData->filterHighFrequency);
}

bool Profile::setFilterHighFrequency(int pHigh)
{
    return setFilterFrequencies(m_pData->filterLowFrequency, pHigh);
}
