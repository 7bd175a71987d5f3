#include "platform/error_to_code.h"

#include <new>
#include <stdexcept>

#include "platform/errors.h"
#include "platform/functions.h"
#include "platform/text.h"

namespace brindle {

namespace {

HRESULT Originate(HRESULT code, const std::exception& error) noexcept {
    try {
        RoOriginateLanguageException(code, ToPlatformString(error.what()).Get(), nullptr);
    } catch (...) {
        // Deliberately ignored: without memory for the message the code alone is returned
        // (ErrorsToCodes.TheCodeIsReturnedWhereTheMessageCannotBeCreated).
    }
    return code;
}

}  // namespace

HRESULT ErrorToCode() noexcept {
    try {
        throw;
    } catch (const hresult_error& error) {
        return error.code();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const std::out_of_range& error) {
        return Originate(kOutOfBounds, error);
    } catch (const std::invalid_argument& error) {
        return Originate(E_INVALIDARG, error);
    } catch (const std::exception& error) {
        return Originate(E_FAIL, error);
    } catch (...) {
        return E_FAIL;
    }
}

}  // namespace brindle
