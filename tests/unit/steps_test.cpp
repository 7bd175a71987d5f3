#include "frame/diagnostics/steps.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "support/simulator_fixture.h"

namespace brindle {
namespace {

constexpr HRESULT kWentOn = 0x1234;
constexpr HRESULT kFirst = Code(0x80000001);
constexpr HRESULT kSecond = Code(0x80000002);
constexpr HRESULT kThird = Code(0x80000003);

class Steps : public testing::Test {
protected:
    void SetUp() override { testing::internal::CaptureStdout(); }
    void TearDown() override {
        if (!printed_read_) {
            testing::internal::GetCapturedStdout();
        }
    }

    // An operation of one guarded step that returns these codes in turn.
    HRESULT Run(std::vector<HRESULT> codes) {
        const auto step = [&] { return codes.at(evaluations++); };
        RETURN_IF_STEP_FAILS(42, step());
        return kWentOn;
    }
    std::string Printed() {
        printed_read_ = true;
        return testing::internal::GetCapturedStdout();
    }

    std::size_t evaluations = 0;

private:
    bool printed_read_ = false;
};

TEST_F(Steps, AStepThatSucceedsIsEvaluatedOnceAndTheOperationGoesOn) {
    EXPECT_EQ(Run({S_OK}), kWentOn);
    EXPECT_EQ(evaluations, 1u);
    EXPECT_EQ(Printed(), "");
}

TEST_F(Steps, APositiveCodeIsASuccess) {
    EXPECT_EQ(Run({S_FALSE}), kWentOn);
    EXPECT_EQ(evaluations, 1u);
    EXPECT_EQ(Printed(), "");
}

TEST_F(Steps, AStepThatKeepsFailingPrintsTheSecondCodeAndEndsWithTheThird) {
    EXPECT_EQ(Run({kFirst, kSecond, kThird}), kThird);
    EXPECT_EQ(evaluations, 3u);
    EXPECT_EQ(Printed(), "failed with 80000002 at line 42\n");
}

TEST_F(Steps, AThirdEvaluationThatSucceedsEndsTheOperationWithThatSuccess) {
    EXPECT_EQ(Run({kFirst, kSecond, S_OK}), S_OK);
    EXPECT_EQ(evaluations, 3u);
    EXPECT_EQ(Printed(), "failed with 80000002 at line 42\n");
}

TEST_F(Steps, ASecondEvaluationThatSucceedsIsPrintedAndDoesNotSaveTheStep) {
    EXPECT_EQ(Run({kFirst, S_OK, kThird}), kThird);
    EXPECT_EQ(evaluations, 3u);
    EXPECT_EQ(Printed(), "failed with 0 at line 42\n");
}

TEST_F(Steps, AStepThatFailsOnceStillEndsTheOperation) {
    EXPECT_EQ(Run({kFirst, S_OK, S_OK}), S_OK);
    EXPECT_EQ(evaluations, 3u);
    EXPECT_EQ(Printed(), "failed with 0 at line 42\n");
}

TEST_F(Steps, PositiveCodesArePrintedAndReturnedAsTheyAre) {
    EXPECT_EQ(Run({kFirst, S_FALSE, 2}), 2);
    EXPECT_EQ(Printed(), "failed with 1 at line 42\n");
}

TEST_F(Steps, TheSideEffectsOfEveryEvaluationStay) {
    std::string done;
    const auto operation = [&]() -> HRESULT {
        RETURN_IF_STEP_FAILS(1, (done += "a", S_OK));
        RETURN_IF_STEP_FAILS(2, (done += "b", kFirst));
        RETURN_IF_STEP_FAILS(3, (done += "c", S_OK));
        return kWentOn;
    };
    EXPECT_EQ(operation(), kFirst);
    EXPECT_EQ(done, "abbb");
}

TEST_F(Steps, TheLineIsPrintedBetweenTheSecondAndTheThirdEvaluation) {
    const auto operation = []() -> HRESULT {
        RETURN_IF_STEP_FAILS(5, (std::puts("evaluated"), kFirst));
        return kWentOn;
    };
    operation();
    EXPECT_EQ(Printed(), "evaluated\nevaluated\nfailed with 80000001 at line 5\nevaluated\n");
}

TEST_F(Steps, AnExceptionOfTheOperationPassesThrough) {
    EXPECT_THROW(Run({}), std::out_of_range);
    EXPECT_EQ(evaluations, 1u);
    EXPECT_EQ(Printed(), "");
}

TEST_F(Steps, AnExceptionOfALaterEvaluationPassesThrough) {
    EXPECT_THROW(Run({kFirst}), std::out_of_range);
    EXPECT_EQ(evaluations, 2u);
    EXPECT_EQ(Printed(), "");
}

TEST_F(Steps, AGuardedStepInsideAnotherPrintsInEachOfItsThreeEvaluations) {
    const auto inner = [&]() -> HRESULT {
        RETURN_IF_STEP_FAILS(1065, (++evaluations, kFirst));
        return kWentOn;
    };
    const auto outer = [&]() -> HRESULT {
        RETURN_IF_STEP_FAILS(803, inner());
        return kWentOn;
    };
    EXPECT_EQ(outer(), kFirst);
    EXPECT_EQ(evaluations, 9u);
    EXPECT_EQ(Printed(),
              "failed with 80000001 at line 1065\n"
              "failed with 80000001 at line 1065\n"
              "failed with 80000001 at line 803\n"
              "failed with 80000001 at line 1065\n");
}

}  // namespace
}  // namespace brindle
