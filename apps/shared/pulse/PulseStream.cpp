// SPDX-License-Identifier: MIT
#include <shared/pulse/PulseStream.h>

PulseStream::PulseStream(PulseInput& pInput) : QIODevice(&pInput), m_input(pInput)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

#include "moc_PulseStream.cpp"
