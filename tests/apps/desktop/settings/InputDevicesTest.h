// SPDX-License-Identifier: MIT
#pragma once

#include <desktop/settings/InputDevicesModel.h>
#include <shared/capture/SoundBackEnd.h>

#include <QAbstractItemModelTester>

#include <apps/desktop/PanelTest.h>
#include <fake/FakeAudioTrack.h>
#include <fake/Machine.h>
#include <support/Text.h>

/// Says that there is a sound server.
class AnsweringBackEnd : public SoundBackEnd
{
public:
    AnsweringBackEnd() { _Publish(); }
    std::vector<SoundSource> getSources() const override { return sources; }
    bool isAnswering() const override { return true; }
    std::optional<SoundPosition> getPosition() const override { return {}; }

    std::vector<SoundSource> sources;
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
