// SPDX-License-Identifier: MIT
#include "TestClass.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

const TestClass* lastRegistered = nullptr;

}  // namespace

TestClass::TestClass(const char* pName, Runner pRunner)
    : m_name(pName), m_runner(pRunner), m_next(lastRegistered)
{
    lastRegistered = this;
}

int TestClass::RunNamed(int pCount, char** pArguments)
{
    const char* pSlash = std::strrchr(pArguments[0], '/');
    const char* pProgram = pSlash == nullptr ? pArguments[0] : pSlash + 1;
    for (const TestClass* pClass = lastRegistered; pClass != nullptr; pClass = pClass->m_next)
        if (std::strcmp(pClass->m_name, pProgram) == 0)
            return pClass->m_runner(pCount, pArguments);
    std::fprintf(stderr, "no class of tests is named %s; there are:\n", pProgram);
    for (const TestClass* pClass = lastRegistered; pClass != nullptr; pClass = pClass->m_next)
        std::fprintf(stderr, "  %s\n", pClass->m_name);
    return EXIT_FAILURE;
}

int main(int pCount, char** pArguments)
{
    return TestClass::RunNamed(pCount, pArguments);
}
