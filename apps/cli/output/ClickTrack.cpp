// SPDX-License-Identifier: MIT
#include <cli/output/ClickTrack.h>
#include <cli/output/detail/ClickSound.h>

#include <QFile>

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

cli::eClick KindOf(const LoggedBeat& pBeat)
{
    if (pBeat.isVirtual)
        return cli::eVirtualClick;
    return pBeat.beatInBar == 1 ? cli::eAccent : cli::eBeatClick;
}

}  // namespace

bool ClickTrack::isSupported(const QString& pPath)
{
    return pPath.endsWith(QLatin1String(".wav"), Qt::CaseInsensitive);
}

bool ClickTrack::Open(const QString& pPath, int pSampleRate, int pChannels)
{
    m_path = pPath;
    m_sampleRate = pSampleRate;
    m_channels = pChannels;
    if (!m_target.Create(pPath)) {
        m_error = m_target.getError();
        return false;
    }
    SF_INFO info = {};
    info.samplerate = pSampleRate;
    info.channels = pChannels;
    info.format = SF_FORMAT_RF64 | SF_FORMAT_PCM_16;
    const QByteArray path = QFile::encodeName(m_target.getTemporaryPath());
    m_file.reset(sf_open(path.constData(), SFM_RDWR, &info));
    if (m_file == nullptr)
        return _Fail(QString::fromUtf8(sf_strerror(nullptr)));
    sf_command(m_file.get(), SFC_RF64_AUTO_DOWNGRADE, nullptr, SF_TRUE);
    return true;
}

bool ClickTrack::Append(const float* pSamples, std::size_t pFrames)
{
    m_buffer.resize(pFrames * std::size_t(m_channels));
    std::transform(pSamples, pSamples + m_buffer.size(), m_buffer.begin(), cli::toInt16);
    m_frameCount += pFrames;
    return _Transfer(sf_writef_short(m_file.get(), m_buffer.data(), sf_count_t(pFrames)),
                     sf_count_t(pFrames));
}

bool ClickTrack::Finish(const std::vector<LoggedBeat>& pBeats)
{
    std::array<std::vector<int>, 3> clicks;
    for (const cli::eClick click : {cli::eBeatClick, cli::eVirtualClick, cli::eAccent})
        clicks[click] = cli::makeClick(m_sampleRate, click);
    for (const LoggedBeat& beat : pBeats)
        if (beat.index < m_frameCount && !_MixClick(beat.index, clicks[KindOf(beat)]))
            return false;
    if (!_Close())
        return false;
    if (!m_target.Commit()) {
        m_error = m_target.getError();
        return false;
    }
    return true;
}

bool ClickTrack::_MixClick(quint64 pFrame, const std::vector<int>& pClick)
{
    const auto start = sf_count_t(pFrame);
    const auto count = sf_count_t(std::min<quint64>(pClick.size(), m_frameCount - pFrame));
    const auto channels = std::size_t(m_channels);
    m_buffer.resize(std::size_t(count) * channels);
    if (sf_seek(m_file.get(), start, SEEK_SET | SFM_READ) != start ||
        !_Transfer(sf_readf_short(m_file.get(), m_buffer.data(), count), count))
        return _Fail(tr("reading back failed"));
    for (std::size_t i = 0; i < m_buffer.size(); ++i)
        m_buffer[i] = cli::mixClick(m_buffer[i], pClick[i / channels]);
    sf_seek(m_file.get(), start, SEEK_SET | SFM_WRITE);
    return _Transfer(sf_writef_short(m_file.get(), m_buffer.data(), count), count);
}

bool ClickTrack::_Transfer(sf_count_t pDone, sf_count_t pWanted)
{
    return pDone == pWanted || _Fail(QString::fromUtf8(sf_strerror(m_file.get())));
}

bool ClickTrack::_Close()
{
    return sf_close(m_file.release()) == 0 || _Fail(tr("closing the file failed"));
}

bool ClickTrack::_Fail(const QString& pReason)
{
    m_error = tr("Cannot write the click track \"%1\": %2; check the free space and the folder.")
                  .arg(m_path, pReason);
    return false;
}
