// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/audio/AudioSampleConverter.h>

template class AudioSampleConverter<signed char>;
template class AudioSampleConverter<unsigned char>;
template class AudioSampleConverter<short>;
template class AudioSampleConverter<unsigned short>;
template class AudioSampleConverter<int>;
template class AudioSampleConverter<unsigned int>;
template class AudioSampleConverter<long long>;
template class AudioSampleConverter<unsigned long long>;
