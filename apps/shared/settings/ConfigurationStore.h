// SPDX-License-Identifier: MIT
#pragma once

#include <AudioAnalyzer/config/SettingsTable.h>

#include <shared/settings/ConfigurationValues.h>
#include <shared/settings/FileLock.h>

#include <QCoreApplication>
#include <QString>

#include <memory>
#include <vector>

class Configuration;

/// The configuration file that all hosts in one folder share, with words for what goes wrong.
///
/// Programs that save at once lose nothing: a save takes its turn and puts what was changed here
/// into what the file holds by then.
///
/// The library forgets the stored device when it is not present at the moment of loading. A host
/// that saves again would lose it for good, so the store keeps it.
class ConfigurationStore
{
    Q_DECLARE_TR_FUNCTIONS(ConfigurationStore)

public:
    /// How long one program that does not finish is waited for.
    static constexpr int kPatienceMs = 10000;

    ConfigurationStore();
    ~ConfigurationStore();
    Q_DISABLE_COPY(ConfigurationStore)

    /// Allows the user's own folder for the files of settings, where they cannot stand beside the
    /// program. For this process; at its start.
    static void UseUserFolder();
    /// The file: next to the program, or in the user's folder.
    static QString getPath();

    /// Reads the file, within the limits of the settings; without one there are the defaults. False
    /// when it is damaged or no file at all: then there are the defaults as well, and getError()
    /// says what to do. [event loop]
    bool Load();
    /// The same in a turn of its own, which ends with Save() or with this object: what is decided
    /// by what is loaded holds until it is saved. False also when another program keeps its turn.
    bool LoadToChange(int pPatienceMs = kPatienceMs);
    /// Writes what was changed since it was loaded or saved; the rest stays as the file has it, and
    /// is taken over. False when it cannot be written, which getError() tells with its path.
    bool Save(int pPatienceMs = kPatienceMs);
    /// The last Save() has taken something over that another program had stored.
    bool hasTakenOver() const { return m_hasTakenOver; }
    /// The last failure was another program that kept its turn: it is worth trying again.
    bool isBusy() const { return m_isBusy; }
    /// Takes over what another program has stored meanwhile; what was changed here stays changed.
    /// True when a value is another one now. Cheap while the file stays as it is. [event loop]
    bool TakeOver();
    /// The defaults, with or without the user's profiles; nothing is saved.
    void Reset(bool pKeepsProfiles);

    Configuration& getConfiguration() { return *m_configuration; }
    const Configuration& getConfiguration() const { return *m_configuration; }
    /// The stored device, present or not; empty = none.
    const QString& getDeviceName() const { return m_deviceName; }
    void setDeviceName(const QString& pName);
    QString getError() const { return m_error; }
    /// What the file was last found to hold beyond the limits of its settings, and what was taken
    /// instead; empty = nothing. The file stays so until it is saved.
    QString getNotice() const { return m_notice; }

private:
    /// Tells one content of the file from another.
    struct FileState
    {
        quint64 file = 0;  ///< its number in the file system; 0 = there is none
        qint64 size = 0;
        qint64 time = 0;  ///< ns
    };

    static FileState _Look();
    bool _TakeTurn(int pPatienceMs);
    std::unique_ptr<Configuration> _Read(QString& pDevice);
    void _Notice(const std::vector<SettingsTable::Change>& pChanges);
    bool _Merge();
    bool _Write();
    void _RefuseWriting(const QString& pPath);
    ConfigurationValues _Values() const;

    std::unique_ptr<Configuration> m_configuration;  ///< never null; Load(), Reset() exchange it
    QString m_deviceName;
    ConfigurationValues m_stored;  ///< as last seen in the file
    FileState m_seen;
    FileLock m_lock;
    bool m_hasTakenOver = false;
    bool m_isBusy = false;
    QString m_error;
    QString m_notice;
};
