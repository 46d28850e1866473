// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QFile>

#include <cstring>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

/// Puts the process, and those it starts, into a network of their own that has the loopback alone:
/// Link speaks to the whole net. To be called before there are threads. False where the system
/// forbids it.
inline bool enterPrivateNet()
{
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0)
        return false;
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ifreq request = {};
    std::strcpy(request.ifr_name, "lo");
    request.ifr_flags = IFF_UP | IFF_RUNNING | IFF_MULTICAST;
    const bool isUp = ::ioctl(descriptor, SIOCSIFFLAGS, &request) == 0;
    ::close(descriptor);
    return isUp;
}

/// An application in such a network.
struct InPrivateNet
{
    InPrivateNet(int& pCount, char** pArguments)
        : isPrivate(enterPrivateNet()), application(pCount, pArguments)
    {
        if (!isPrivate)
            qFatal("there is no network of one's own here");
    }

    bool isPrivate;
    QCoreApplication application;
};
