// SPDX-License-Identifier: MIT
#pragma once

#include <QtTest>

/// A class of tests in an executable that holds several.
///
/// The program's name says which of them it runs: each class has a hard link of the executable, in
/// a folder of its own.
class TestClass
{
public:
    /// Runs the class with the command line; the exit code is the number of failures.
    using Runner = int (*)(int pCount, char** pArguments);

    /// Registers itself; to be made before main(), once for each class. The name is kept, not
    /// copied.
    TestClass(const char* pName, Runner pRunner);
    TestClass(const TestClass&) = delete;
    TestClass& operator=(const TestClass&) = delete;

    /// Runs the class that the program is named after.
    static int RunNamed(int pCount, char** pArguments);

private:
    const char* m_name;
    Runner m_runner;
    const TestClass* m_next;  ///< the one registered before; null at the end
};

/// For tests that need no application object.
struct NoApplication
{
    NoApplication(int&, char**) {}
};

template <typename Test, typename Application>
int RunTestClass(int pCount, char** pArguments)
{
    const Application application(pCount, pArguments);
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    Test test;
    return QTest::qExec(&test, pCount, pArguments);
}

/// Takes the place of Qt's QTEST_MAIN and its relatives. Application is NoApplication,
/// QCoreApplication, QApplication, or a type of the test's own that makes one of them.
#define AA_TEST(Test, Application)                                                                 \
    static const TestClass Test##_class(#Test, &RunTestClass<Test, Application>);
