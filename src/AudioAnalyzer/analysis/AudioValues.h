/* SPDX-License-Identifier: MIT */
#pragma once

#include <stdint.h>

/** The pulse block of an analyzer, as two machine words. Also valid C. */
struct AudioValues
{
    uint32_t size; /**< samples in a pulse block; 0 when there is no analyzer */
    int16_t*
        samples; /**< size raw input samples, owned by the analyzer; valid until it is deleted */
};
