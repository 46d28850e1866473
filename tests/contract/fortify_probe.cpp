// SPDX-License-Identifier: MIT
#include <cstdio>
#include <cstring>

/// A copy whose limit the compiler knows: it must become a checked call, as every one like it in
/// what is shipped. Built with the options of everything else, which hold few such copies.
int main(int pCount, char* pArguments[])
{
    char text[8];
    std::strcpy(text, pArguments[pCount - 1]);
    return std::puts(text) < 0;
}
