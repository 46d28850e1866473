// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/Export.h>
#include <AudioAnalyzer/config/Profile.h>
#include <AudioAnalyzer/config/UserProfile.h>

#include <QList>
#include <QString>
#include <QtGlobal>

class QByteArray;
class QDataStream;
class QIODevice;
class QtAudioInputDeviceInfo;

namespace detail {
class BoundedReader;
}

/// Every persistent analysis setting, the tempo profiles and the selected one.
///
/// Setters of values return true when the value changed, which also marks the configuration
/// modified; only setIsModified() clears the mark. No range is checked.
///
/// Threads: the host's event-loop thread only.
class AUDIOANALYZER_EXPORT Configuration
{
public:
    /// The defaults: the three built-in profiles, "Electro" selected.
    Configuration();
    /// Copies durations, thresholds, flags and user profiles, whose records are shared, and the
    /// selection; language and selected device stay empty.
    Configuration(const Configuration& pOther);
    Configuration& operator=(const Configuration&) = delete;
    ~Configuration();

    // ---- Values: Configuration.cpp --------------------------------------------------------------

    double getAverageVolumeCalculationDuration() const;  ///< seconds
    double getBPMCalculationDuration() const;            ///< seconds
    bool getDisplaySpeakers() const;
    bool getDisplayVirtualBeatsWhenStopped() const;
    bool getGrayMode() const;
    const QString&
    getLanguage() const;  ///< empty = none chosen; valid until the next setLanguage()
    double getNormalizationDuration() const;  ///< seconds
    short getNormalizationThreshold() const;  ///< 16-bit sample magnitude
    double getStopDetectionDuration() const;  ///< seconds
    short getStopDetectionThreshold() const;  ///< 16-bit sample magnitude
    short getThreshold() const;               ///< 16-bit sample magnitude; -1 = automatic
    bool isModified() const;
    bool isTopMost() const;

    bool setAverageVolumeCalculationDuration(double pSeconds);
    bool setBPMCalculationDuration(double pSeconds);
    bool setDisplaySpeakers(bool pIsDisplayed);
    bool setDisplayStopped(bool pIsDisplayed);
    bool setDisplayVirtualBeatsWhenStopped(bool pIsDisplayed);
    bool setGrayMode(bool pIsGray);
    /// Stores the mark. Always true.
    bool setIsModified(bool pIsModified);
    /// Compared without regard to case; an empty text clears the language.
    bool setLanguage(const QString& pLanguage);
    bool setNormalizationDuration(double pSeconds);
    bool setNormalizationThreshold(short pThreshold);
    bool setStopDetectionDuration(double pSeconds);
    bool setStopDetectionThreshold(short pThreshold);
    /// Any negative value means automatic and is stored as -1.
    bool setThreshold(short pThreshold);
    bool setTopMost(bool pIsTopMost);

    // ---- Profiles: ConfigurationProfiles.cpp ----------------------------------------------------

    /// All profiles, sorted by the call: built-in ones by name, then user profiles by name.
    /// [valid until a profile is added or removed]
    const QList<Profile>& getProfiles() const;
    /// A handle on the selected profile; edits through it reach the configuration.
    Profile getSelectedProfile();
    Profile getSelectedProfile() const;
    /// False when pProfile is selected already. It need not be in the list.
    bool setSelectedProfile(const Profile& pProfile);
    bool isSelected(const Profile& pProfile) const;
    /// Appends a new user profile, unchecked, and returns a handle on it.
    Profile Add(const QString& name,
                double minimalBPM,
                double maximalBPM,
                double sensibility,
                int filterLowFrequency,
                int filterHighFrequency);
    /// Removes the profile with the ID of pProfile; true when there was one. When it is the
    /// selected one, the default profile is selected, even when nothing is removed.
    bool Remove(const UserProfile& pProfile);

    // ---- Selected input device: ConfigurationDevice.cpp -----------------------------------------

    /// Remembers the device by its name alone, letter case included. False when that name is stored
    /// already. [event loop]
    bool setSelectedAudioInputDevice(const QtAudioInputDeviceInfo& pDevice);
    bool isSelected(const QtAudioInputDeviceInfo& pDevice) const;
    /// The device of the stored name, or null when none is stored or it is not present now. Owned
    /// by the device watcher. [event loop] [valid until the watcher takes its next list]
    QtAudioInputDeviceInfo* getSelectedAudioInputDevice() const;

    // ---- File: ConfigurationFile.cpp ------------------------------------------------------------

    /// The stored configuration, or the defaults when there is none or it is damaged. Never null,
    /// writes nothing; owned by the caller. [event loop]
    static Configuration* LoadOrCreate();
    /// The configuration in the file at path but for its device, so that the sound system is not
    /// asked for what it has; null when the file is missing or damaged. Owned by the caller.
    static Configuration* LoadWithoutDevice(const QString& path);
    /// Replaces the stored configuration; false, and the old file whole, when that fails. Renumbers
    /// the user profiles, keeps the modified mark, and mode and owner of the old file. [event loop]
    bool Save();

    /// The absolute path of "AudioAnalyzer.cfg" in the folder of the executable, or where
    /// SettingsFolder has it.
    static QString _getConfigFilePath();
    /// The configuration in the file at path, owned by the caller; null when it is missing or
    /// damaged.
    static Configuration* _Load(const QString& path);
    /// Save() to the file at path.
    bool _Save(const QString& path);

private:
    static constexpr qint16 kAutomaticThreshold = -1;

    /// Stores pValue in pMember and marks the configuration modified, when it differs.
    template <typename Value>
    bool _Store(Value& pMember, Value pValue);

    void _AppendUserProfiles(const QList<Profile>& pProfiles);
    void _SelectDefaultProfile();
    void _SelectEqualProfile(const Profile& pProfile);
    void _SelectProfile(unsigned int pID);

    static QtAudioInputDeviceInfo* _FindDevice(const QString& pName);

    static const unsigned char _SIGNATURE[8];  ///< first bytes of every configuration file

    /// What a reader of the file wants to know.
    enum eFilePart
    {
        eEverything,
        eNoDevice  ///< all but the device, which would have to be looked for
    };
    static Configuration* _LoadPart(const QString& path, eFilePart pPart);
    bool _Read(QIODevice& pFile, eFilePart pPart);
    static int _ReadVersion(detail::BoundedReader& pReader);
    void _ReadDevice(detail::BoundedReader& pReader, eFilePart pPart);
    void _ReadThresholdAndFlags(detail::BoundedReader& pReader);
    void _ReadUserProfiles(detail::BoundedReader& pReader);
    void _ReadDurations(detail::BoundedReader& pReader);
    void _ReadLanguage(detail::BoundedReader& pReader);
    QByteArray _Write() const;
    void _WriteUserProfiles(QDataStream& pStream) const;

    double m_averageVolumeCalculationDuration = 2.0;  ///< seconds
    double m_bpmCalculationDuration = 10.0;           ///< seconds
    bool m_displaySpeakers = true;
    bool m_displayStopped = false;  ///< kept and saved for the host; there is no getter
    bool m_displayVirtualBeatsWhenStopped = false;
    bool m_grayMode = true;
    bool m_isModified = false;
    QString m_language;                        ///< code chosen by the host
    double m_normalizationDuration = 5.0;      ///< seconds
    qint16 m_normalizationThreshold = 16383;   ///< sample magnitude, half of full scale
    mutable QList<Profile> m_profiles;         ///< sorted by getProfiles()
    QString m_selectedAudioInputDevice;        ///< name; empty = none chosen
    Profile m_selectedProfile;                 ///< handle on an entry of m_profiles
    double m_stopDetectionDuration = 0.5;      ///< seconds
    qint16 m_stopDetectionThreshold = 3276;    ///< sample magnitude, a tenth of full scale
    qint16 m_threshold = kAutomaticThreshold;  ///< sample magnitude
    bool m_topMost = true;
};
