// SPDX-License-Identifier: MIT
#pragma once

#include <shared/capture/SoundBackEnd.h>
#include <shared/pulse/PulseConnection.h>

#include <QByteArray>

#include <memory>

/// The back end of a host: all its sound comes from a PulseAudio server, or from PipeWire's.
///
/// To be made with a QCoreApplication, before the first device query, and to outlive what records.
class PulseBackEnd : public SoundBackEnd
{
public:
    PulseBackEnd();
    ~PulseBackEnd() override;

    /// When a server is there, Qt Multimedia has it for its only back end from now on. Otherwise
    /// nothing is changed, Qt's own plugins serve, and false is returned. Waits for an answer, but
    /// for a second and a half at most. [event loop]
    bool Install();

    /// The installed one; null when there is none.
    static PulseBackEnd* get();

    std::vector<SoundSource> getSources() const override;
    bool isAnswering() const override;
    std::optional<SoundPosition> getPosition() const override;
    std::unique_ptr<SoundPlayback> Play(int pSampleRate) override;
    std::unique_ptr<SoundLevels> HearLevels() override;

    /// Of the source of that name; 0 when it is not there.
    int getChannels(const QByteArray& pSource) const;
    std::shared_ptr<PulseConnection> getConnection() const { return m_connection; }
    void setPosition(const std::optional<SoundPosition>& pPosition) { m_position = pPosition; }

private:
    const std::shared_ptr<PulseConnection> m_connection;
    std::optional<SoundPosition> m_position;
};
