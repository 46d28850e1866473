// SPDX-License-Identifier: MIT
#pragma once

#include <cli/live/detail/AnnounceErrors.h>
#include <cli/live/detail/TickStatistics.h>
#include <shared/capture/CaptureSession.h>

#include <QString>

#include <cstdint>

/// The words in which "listen" tells a person what happens and what to do.
namespace listentexts {

/// Empty for a state that is not worth a word.
QString describeState(const CaptureSession& pSession, bool pWasRunning);
/// pStopThreshold: of the engine, which means nothing to the automatic tracker.
QString describeNotice(const SourceState& pSource,
                       eCaptureNotice pNotice,
                       bool pIsAutomatic,
                       int pStopThreshold);
/// Why the device cannot be analysed, and which ones can. Asks every device.
QString describeUnusable(const CaptureSession& pSession);
/// What is analysed, once there is an analyzer.
QString describeAnalysis(const LiveSource& pSource);
/// The recorded format and what becomes of it.
QString describeFormat(const CaptureSession& pSession);
/// A file that is played, once its length is known.
QString describeFile(const SourceState& pSource);
/// Whether a file that is to be heard is.
QString describeSound(const SourceState& pSource);
QString describeDrift(const CaptureSession& pSession);
QString describeAnnouncements(const cli::AnnounceStatistics& pStatistics);
QString describeTicks(const cli::TickStatistics& pStatistics);
QString describePriority(bool pIsRealTime);
/// What a reader, or this program, did not take in time.
QString describeLostEvents(std::uint64_t pCount);
QString describeLostSamples(quint64 pCount);
/// 48000 Hz, 2 channels, 16 bits
QString describeFormat(const QAudioFormat& pFormat);
/// Where the devices come from instead.
QString describeNoServer();
QString describeNoDevice();
/// There is no device of a name; which ones are there.
QString describeUnknownDevice(const QString& pName, const QStringList& pNames);

}  // namespace listentexts
