// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/settings/InputDevicesModel.h>
#include <shared/capture/SoundBackEnd.h>

#include <QAbstractItemModelTester>

#include <apps/desktop/PanelTest.h>
#include <fake/FakeAudioTrack.h>
#include <fake/Machine.h>
#include <map>
#include <memory>
#include <support/Text.h>

/// Says that there is a sound server.
class AnsweringBackEnd : public SoundBackEnd
{
public:
    AnsweringBackEnd() { _Publish(); }
    std::vector<SoundSource> getSources() const override { return sources; }
    bool isAnswering() const override { return true; }
    std::optional<SoundPosition> getPosition() const override { return {}; }

    std::unique_ptr<SoundLevels> HearLevels() override { return std::make_unique<Levels>(*this); }

    std::vector<SoundSource> sources;
    std::map<QString, double> peaks;  ///< that are heard
    int listeners = 0;                ///< to the levels

private:
    struct Levels : SoundLevels
    {
        explicit Levels(AnsweringBackEnd& pOwner) : owner(pOwner) { ++owner.listeners; }
        ~Levels() override { --owner.listeners; }
        std::map<QString, double> TakePeaks() override { return owner.peaks; }

        AnsweringBackEnd& owner;
    };
};

/// A model under the eyes of Qt's tester.
struct WatchedDevices
{
    InputDevicesModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};

    QStringList Texts() const
    {
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts.append(model.index(row).data().toString());
        return texts;
    }
    bool Is(const char* pName, InputDevicesModel::eRole pRole) const
    {
        return model.index(model.Find(Text(pName))).data(pRole).toBool();
    }
};
