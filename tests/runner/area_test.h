// The Qt Test classes of one area of tests/ are linked into one program; each is still run by
// itself.
#pragma once

class AreaTest {
public:
    using Main = int (*)(int argc, char* argv[]);

    // Makes the test known under the name of its source file, without path and suffix.
    AreaTest(const char* sourceFile, Main main);
};

// In place of QTEST_MAIN(TestClass), with QT_MAIN one of QTEST_MAIN, QTEST_GUILESS_MAIN and
// QTEST_APPLESS_MAIN. The main() that these define is a function of the anonymous namespace here.
#define AREA_TEST(QT_MAIN, TestClass)               \
    namespace {                                     \
    QT_MAIN(TestClass)                              \
    const AreaTest REGISTERED_TEST(__FILE__, main); \
    }
