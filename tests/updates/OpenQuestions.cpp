// A test may end while somebody is still asked for the proxy, on a thread that nothing ends. What
// the libraries tidy up at the end of the process would be pulled away from under it.

#include "updates/ProxyQuestion.h"

#include <gtest/gtest.h>

#include <QTest>

namespace {

class OpenQuestions : public testing::Environment
{
    void TearDown() override
    {
        EXPECT_TRUE(QTest::qWaitFor([] { return !ProxyQuestion::isAnyOpen(); }));
    }
};

const testing::Environment *const kOpenQuestions =
    testing::AddGlobalTestEnvironment(new OpenQuestions);

} // namespace
