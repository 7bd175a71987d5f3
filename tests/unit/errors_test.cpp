#include "platform/errors.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <typeinfo>

#include "platform/error_to_code.h"
#include "support/simulator_fixture.h"

namespace brindle {
namespace {

// Whether the code is thrown as exactly this type, and the error carries the code.
template <class Kind>
bool IsThrownExactlyAs(HRESULT code) {
    try {
        Throw(code);
    } catch (const Kind& error) {
        return typeid(error) == typeid(Kind) && error.code() == code;
    } catch (...) {
        return false;
    }
}

struct KindRow {
    std::uint32_t code;
    const char* kind;
    bool (*thrown_as)(HRESULT code);
};

#define KIND(code, kind) \
    { code, #kind, IsThrownExactlyAs<kind> }
constexpr KindRow kKinds[] = {
    KIND(0x80070005, hresult_access_denied),
    KIND(0x8001010E, hresult_wrong_thread),
    KIND(0x80004001, hresult_not_implemented),
    KIND(0x80070057, hresult_invalid_argument),
    KIND(0x8000000B, hresult_out_of_bounds),
    KIND(0x80004002, hresult_no_interface),
    KIND(0x80010108, hresult_disconnected),
    KIND(0x80040111, hresult_class_not_available),
    KIND(0x8000000C, hresult_changed_state),
    KIND(0x8000000E, hresult_illegal_method_call),
    KIND(0x8000000D, hresult_illegal_state_change),
    KIND(0x80000018, hresult_illegal_delegate_assignment),
    KIND(0x800704C7, hresult_canceled),
};
#undef KIND

HRESULT CodeCarriedBy(HRESULT raised) {
    try {
        Throw(raised);
    } catch (const hresult_error& error) {
        return error.code();
    } catch (...) {
        return S_OK;
    }
}

TEST(ThrownErrors, EveryCodeOfItsOwnKindIsRaisedAsThatKind) {
    for (const KindRow& row : kKinds)
        EXPECT_TRUE(row.thrown_as(Code(row.code))) << row.kind;
}

TEST(ThrownErrors, AHandlerForPlatformErrorsCatchesEveryKindAndReadsItsCode) {
    for (const KindRow& row : kKinds)
        EXPECT_EQ(CodeCarriedBy(Code(row.code)), Code(row.code)) << row.kind;
}

TEST(ThrownErrors, AnyOtherCodeIsAPlainPlatformError) {
    for (const std::uint32_t code :
         {0x80004005u, 0x80004003u, 0x80040154u, 0x80070490u, 0x8000000Fu, 0x80000000u, 0xFFFFFFFFu})
        EXPECT_TRUE(IsThrownExactlyAs<hresult_error>(Code(code))) << std::hex << code;
}

TEST(ThrownErrors, MissingMemoryIsTheStandardAllocationFailure) {
    try {
        Throw(Code(0x8007000E));
    } catch (const std::exception& error) {
        EXPECT_TRUE(typeid(error) == typeid(std::bad_alloc)) << typeid(error).name();
    }
}

TEST(ThrownErrors, MissingMemoryPassesAHandlerForPlatformErrors) {
    EXPECT_EQ(CodeCarriedBy(Code(0x8007000E)), S_OK);
    static_assert(!std::is_base_of_v<hresult_error, std::bad_alloc>);
}

TEST(ThrownErrors, EveryPlatformErrorIsAStandardOneWithItsCodeInHexadecimal) {
    try {
        Throw(Code(0x8000000B));
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), "platform error 8000000b");
    }
}

TEST(ThrownErrors, SuccessesAreNotRaised) {
    EXPECT_NO_THROW(ThrowIfFailed(S_OK));
    EXPECT_NO_THROW(ThrowIfFailed(S_FALSE));
    EXPECT_NO_THROW(ThrowIfFailed(0x7FFFFFFF));
    EXPECT_THROW(ThrowIfFailed(Code(0x80000000)), hresult_error);
}

using ErrorsToCodes = SimulatorTest;

template <class Error>
HRESULT CodeFor(const Error& error) {
    try {
        throw error;
    } catch (...) {
        return ErrorToCode();
    }
}

TEST_F(ErrorsToCodes, APlatformErrorGivesItsCode) {
    EXPECT_EQ(CodeFor(hresult_error(Code(0x80070490))), Code(0x80070490));
    EXPECT_EQ(CodeFor(hresult_canceled()), Code(0x800704C7));
}

TEST_F(ErrorsToCodes, MissingMemoryGivesItsCode) { EXPECT_EQ(CodeFor(std::bad_alloc()), Code(0x8007000E)); }

TEST_F(ErrorsToCodes, AnOutOfRangeErrorGivesOutOfBounds) {
    EXPECT_EQ(CodeFor(std::out_of_range("")), Code(0x8000000B));
}

TEST_F(ErrorsToCodes, AnInvalidArgumentErrorGivesInvalidArgument) {
    EXPECT_EQ(CodeFor(std::invalid_argument("")), Code(0x80070057));
}

TEST_F(ErrorsToCodes, AnyOtherStandardErrorGivesAGeneralFailure) {
    EXPECT_EQ(CodeFor(std::runtime_error("")), Code(0x80004005));
    EXPECT_EQ(CodeFor(std::length_error("")), Code(0x80004005));
    EXPECT_EQ(CodeFor(std::exception()), Code(0x80004005));
}

TEST_F(ErrorsToCodes, AnExceptionThatIsNotStandardGivesAGeneralFailure) {
    EXPECT_EQ(CodeFor(42), Code(0x80004005));
    EXPECT_EQ(dialsim_calls("RoOriginateLanguageException"), 0u);
}

TEST_F(ErrorsToCodes, StandardErrorsAreReportedWithTheirCodeAndMessage) {
    CodeFor(std::out_of_range("too far"));
    CodeFor(std::invalid_argument("no such thing"));
    CodeFor(std::runtime_error("message"));
    EXPECT_EQ(dialsim_calls("RoOriginateLanguageException"), 3u);
    EXPECT_EQ(dialsim_calls("RoOriginateLanguageException(8000000b, too far)"), 1u);
    EXPECT_EQ(dialsim_calls("RoOriginateLanguageException(80070057, no such thing)"), 1u);
    EXPECT_EQ(dialsim_calls("RoOriginateLanguageException(80004005, message)"), 1u);
}

TEST_F(ErrorsToCodes, TheReportedMessageIsReadAsUtf8) {
    CodeFor(std::runtime_error("\xC3\xA9\xF0\x9F\x8E\x9B"));
    EXPECT_EQ(dialsim_calls("RoOriginateLanguageException(80004005, \xC3\xA9\xF0\x9F\x8E\x9B)"), 1u);
}

TEST_F(ErrorsToCodes, PlatformErrorsAndMissingMemoryAreNotReported) {
    CodeFor(hresult_error(Code(0x80004005)));
    CodeFor(hresult_invalid_argument());
    CodeFor(hresult_out_of_bounds());
    CodeFor(std::bad_alloc());
    EXPECT_EQ(Journal(), "");
}

TEST_F(ErrorsToCodes, TheCodeIsReturnedWhereTheMessageCannotBeCreated) {
    for (const char* operation : {"WindowsPreallocateStringBuffer", "WindowsPromoteStringBuffer"}) {
        for (const std::uint32_t code : {0x8007000Eu, 0x80004005u}) {
            ASSERT_TRUE(dialsim_fail(operation, Code(code), 1, 1));
            EXPECT_EQ(CodeFor(std::out_of_range("message")), Code(0x8000000B)) << operation;
        }
    }
}

TEST_F(ErrorsToCodes, AMessageThatCannotBeConvertedIsReportedAsTheEmptyText) {
    ASSERT_TRUE(dialsim_yield_null("MultiByteToWideChar", 1, 1));
    EXPECT_EQ(CodeFor(std::runtime_error("message")), Code(0x80004005));
    EXPECT_EQ(dialsim_calls("RoOriginateLanguageException(80004005, )"), 1u);
}

TEST_F(ErrorsToCodes, TheMessagesStringIsReleased) {
    CodeFor(std::runtime_error("message"));
    EXPECT_EQ(dialsim_calls("WindowsDeleteString(message)"), 1u);
    EXPECT_EQ(dialsim_strings(), 0u);
}

}  // namespace
}  // namespace brindle
