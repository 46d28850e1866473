// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Comparable.h>
#include <AudioAnalyzer/Export.h>

#include <QString>

struct ProfileData;

/// Tempo profile: the tempo range, the filter band and the threshold behaviour for a kind of music.
///
/// A Profile is a handle on a shared record. Copies share it, without copy-on-write: what one
/// handle sets, every handle sees, so the configuration's selected profile and the entry in its
/// list stay the same profile. The kind of a profile is told by isSerializable(): user profiles are
/// saved to the configuration file, built-in ones are not.
///
/// Setters return true when the value was stored; false, and no change, when it was refused.
/// A read-only profile refuses everything, and NaN is never stored.
///
/// Threads: the reference count is a plain integer; all copies stay on one thread.
class AUDIOANALYZER_EXPORT Profile : public Comparable<Profile>
{
public:
    /// An empty, read-only profile: ID 0, no name, no range. [allocates one record]
    Profile();
    /// Stores the values as they are, unchecked; the thresholds are 1000 and 32000. Frequencies in
    /// Hz, -1 for no edge; tempos in BPM. [allocates one record]
    Profile(const QString& name,
            double sensibility,
            int filterLowFrequency,
            int filterHighFrequency,
            bool readOnly,
            bool serializable,
            unsigned int id,
            double minimalBPM,
            double maximalBPM);
    /// Shares the record. [audio path: no allocation]
    Profile(const Profile& pOther);
    Profile& operator=(const Profile& pOther);
    ~Profile() override;

    /// 0 for equal IDs; else built-in before user profiles, then by name without regard to case,
    /// then by ID: exactly -1 or 1.
    int CompareTo(const Profile& pOther) const override;

    unsigned int getID() const;
    const QString& getName() const;      ///< valid while a handle on the record lives
    int getFilterLowFrequency() const;   ///< Hz; -1 = no lower edge
    int getFilterHighFrequency() const;  ///< Hz; -1 = no upper edge
    double getMinimalBPM() const;        ///< BPM
    double getMaximalBPM() const;        ///< BPM
    double getDefaultBPM() const;        ///< BPM, the middle of the range: the tempo to start from
    short getMinimalThreshold() const;   ///< 16-bit sample magnitude
    short getMaximalThreshold() const;   ///< 16-bit sample magnitude
    double getSensibility() const;       ///< factor on the average volume for the threshold
    bool isReadOnly() const;
    bool isSerializable() const;  ///< a user profile
    /// A built-in profile whose name contains "Electro", in any case.
    bool isDefault() const;

    /// Tempo range in BPM: 1 <= minimal <= maximal < 1000.
    bool setBPM(double minimal, double maximal);
    /// 1 <= pMinimal <= the present maximum, which must be below 1000.
    bool setMinimalBPM(double pMinimal);
    /// The present minimum, which must be at least 1, <= pMaximal < 1000.
    bool setMaximalBPM(double pMaximal);
    /// 0 <= pThreshold <= the present maximum.
    bool setMinimalThreshold(short pThreshold);
    /// 0 and the present minimum <= pThreshold.
    bool setMaximalThreshold(short pThreshold);
    /// At least 0.
    bool setSensibility(double pSensibility);
    /// Any name that is not blank; stored as given, blanks around it included.
    bool setName(const QString& pName);
    /// Filter band in Hz. A negative frequency is stored as -1, no edge; two edges must be in
    /// order.
    bool setFilterFrequencies(int low, int high);
    bool setFilterLowFrequency(int pLow);
    bool setFilterHighFrequency(int pHigh);

private:
    friend class UserProfile;  // renumbers the entries of a list

    void _Release();
    void _setID(unsigned int pID);

    ProfileData* m_pData;  ///< shared record, freed with its last handle
};
