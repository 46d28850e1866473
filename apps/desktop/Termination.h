// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QSocketNotifier;

/// Turns SIGINT, SIGTERM and SIGHUP into a signal of the event loop, once; a second one ends the
/// program at once. There is at most one at a time.
class Termination : public QObject
{
    Q_OBJECT

public:
    explicit Termination(QObject* pParent = nullptr);
    ~Termination() override;

Q_SIGNALS:
    void OnRequested();

private:
    int m_pipe[2] = {-1, -1};
    QSocketNotifier* m_pNotifier = nullptr;  ///< child
};
