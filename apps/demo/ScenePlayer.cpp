// SPDX-License-Identifier: MIT
#include <demo/ScenePlayer.h>

#include <cmath>

namespace {

constexpr double kEchoSeconds = 0.2;
constexpr double kChordSeconds = 6.0;  ///< in which a chord fades
constexpr demo::Chords::Notes kChord = {57, 60, 64, 69};

}  // namespace

ScenePlayer::ScenePlayer(const Scene& pScene)
    : m_scene(pScene), m_kick(pScene.sampleRate), m_clap(pScene.sampleRate),
      m_hats(pScene.sampleRate), m_bass(pScene.sampleRate), m_chords(pScene.sampleRate),
      m_lead(pScene.sampleRate, kEchoSeconds)
{
}

std::size_t ScenePlayer::Read(float* pSamples, std::size_t pCount)
{
    const auto total = quint64(std::llround(m_scene.duration * m_scene.sampleRate));
    const auto count = std::size_t(std::min<quint64>(pCount, total - m_frame));
    for (std::size_t i = 0; i < count; ++i, ++m_frame) {
        while (m_note < m_scene.notes.size() &&
               quint64(std::llround(m_scene.notes[m_note].time * m_scene.sampleRate)) <= m_frame)
            _Trigger(m_scene.notes[m_note++]);
        pSamples[i] = _Mix();
    }
    return count;
}

void ScenePlayer::_Trigger(const SceneNote& pNote)
{
    switch (pNote.instrument) {
    case eSceneKick:
        m_kickLevel = pNote.level;
        return m_kick.Trigger();
    case eSceneClap:
        m_clapLevel = pNote.level;
        return m_clap.Trigger();
    case eSceneHat:
        return m_hats.Trigger(pNote.level, false);
    case eSceneBass:
        return m_bass.Trigger(pNote.pitch);
    case eSceneChord:
        return m_chords.Trigger(kChord, pNote.level, kChordSeconds);
    case eSceneLead:
        return m_lead.Trigger(pNote.pitch);
    }
}

float ScenePlayer::_Mix()
{
    double left = 0.82 * m_kickLevel * m_kick.Next() + 0.3 * m_clapLevel * m_clap.Next() +
                  0.28 * m_hats.Next() + 0.4 * m_bass.Next();
    double right = left;
    m_chords.Mix(0.15, left, right);
    m_lead.Mix(0.22, left, right);
    return float(demo::kPeak * std::tanh(demo::kDrive * 0.5 * (left + right)));
}
