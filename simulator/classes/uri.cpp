#include "simulator/classes/uri.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "simulator/classes/factories.h"
#include "simulator/system/files.h"

namespace dialsim {

namespace {

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// A single letter before a colon is a drive, not a scheme.
bool HasScheme(std::string_view text) {
    const std::size_t colon = text.find(':');
    return colon != std::string_view::npos && colon > 1 && colon + 1 < text.size() && IsLetter(text[0]) &&
           std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(colon),
                       [](char c) { return IsLetter(c) || IsDigit(c) || c == '+' || c == '-' || c == '.'; });
}

bool IsDosPath(std::string_view text) {
    const bool drive =
        text.size() > 2 && IsLetter(text[0]) && text[1] == ':' && (text[2] == '\\' || text[2] == '/');
    return drive || text.starts_with("\\\\");
}

bool IsEscaped(char c, bool of_path) {
    const std::string_view never = "\"<>^`{|} ";
    const std::string_view in_paths = "%?#";
    const auto code = static_cast<unsigned char>(c);
    return code <= 0x20 || code >= 0x7F || never.find(c) != std::string_view::npos ||
           (of_path && in_paths.find(c) != std::string_view::npos);
}

std::string Escaped(std::string_view text, bool of_path) {
    std::string escaped;
    for (const char c : text) {
        if (IsEscaped(c, of_path)) {
            char code[4];
            std::snprintf(code, sizeof code, "%%%02X", static_cast<unsigned char>(c));
            escaped += code;
        } else {
            escaped += c;
        }
    }
    return escaped;
}

// Empty for an invalid URI.
std::string MakeAbsolute(WideView given) {
    const std::string text = Narrow(given);
    if (HasScheme(text)) {
        return Escaped(text, false);
    }
    if (!IsDosPath(text) && !IsAbsolutePath(given)) {
        return {};
    }
    std::string path = Escaped(text, true);
    std::replace(path.begin(), path.end(), '\\', '/');
    if (path.starts_with("//")) {
        return "file:" + path;
    }
    return (path.starts_with("/") ? "file://" : "file:///") + path;
}

class Uri final : public Object<abi::IUriRuntimeClass> {
    using Interface = abi::IUriRuntimeClass;

public:
    Uri(WideView raw, std::string absolute)
        : Object(abi::Uri::Name), raw_(raw), absolute_(std::move(absolute)) {}

    HRESULT get_AbsoluteUri(HSTRING* result) noexcept override {
        return ReturnAbsoluteUri("get_AbsoluteUri", result);
    }
    HRESULT get_DisplayUri(HSTRING* result) noexcept override {
        return ReturnAbsoluteUri("get_DisplayUri", result);
    }
    HRESULT get_Domain(HSTRING* result) noexcept override {
        return ReturnNotImplemented("get_Domain", result);
    }
    HRESULT get_Extension(HSTRING* result) noexcept override {
        return ReturnNotImplemented("get_Extension", result);
    }
    HRESULT get_Fragment(HSTRING* result) noexcept override {
        return ReturnNotImplemented("get_Fragment", result);
    }
    HRESULT get_Host(HSTRING* result) noexcept override { return ReturnNotImplemented("get_Host", result); }
    HRESULT get_Password(HSTRING* result) noexcept override {
        return ReturnNotImplemented("get_Password", result);
    }
    HRESULT get_Path(HSTRING* result) noexcept override { return ReturnNotImplemented("get_Path", result); }
    HRESULT get_Query(HSTRING* result) noexcept override { return ReturnNotImplemented("get_Query", result); }
    HRESULT get_QueryParsed(abi::WwwFormUrlDecoder** result) noexcept override {
        return ReturnNotImplemented("get_QueryParsed", result);
    }
    HRESULT get_RawUri(HSTRING* result) noexcept override {
        return PerformInto(MethodName<Interface>("get_RawUri"), "", result,
                           [&] { return NewString(raw_, result); });
    }
    HRESULT get_SchemeName(HSTRING* result) noexcept override {
        return ReturnNotImplemented("get_SchemeName", result);
    }
    HRESULT get_UserName(HSTRING* result) noexcept override {
        return ReturnNotImplemented("get_UserName", result);
    }
    HRESULT get_Port(std::int32_t* result) noexcept override {
        return ReturnNotImplemented("get_Port", result);
    }
    HRESULT get_Suspicious(abi::boolean* result) noexcept override {
        return ReturnNotImplemented("get_Suspicious", result);
    }
    HRESULT Equals(abi::IUriRuntimeClass*, abi::boolean* result) noexcept override {
        return ReturnNotImplemented("Equals", result);
    }
    HRESULT CombineUri(HSTRING, abi::IUriRuntimeClass** result) noexcept override {
        return ReturnNotImplemented("CombineUri", result);
    }

private:
    HRESULT ReturnAbsoluteUri(std::string_view method, HSTRING* result) {
        return PerformInto(MethodName<Interface>(method), "", result,
                           [&] { return NewString(Widen(absolute_), result); });
    }
    template <class T>
    static HRESULT ReturnNotImplemented(std::string_view method, T* result) {
        return PerformInto(MethodName<Interface>(method), "", result, [] { return E_NOTIMPL; });
    }

    const WideString raw_;
    const std::string absolute_;
};

class UriFactory final : public Object<abi::IUriRuntimeClassFactory> {
    using Interface = abi::IUriRuntimeClassFactory;

public:
    UriFactory() : Object(TypeName<Interface>()) {}

    HRESULT CreateUri(HSTRING uri, abi::IUriRuntimeClass** result) noexcept override {
        return PerformInto(MethodName<Interface>("CreateUri"), Narrow(View(uri)), result, [&] {
            std::string absolute = MakeAbsolute(View(uri));
            return absolute.empty() ? E_INVALIDARG : Make<Uri>(View(uri), std::move(absolute)).CopyTo(result);
        });
    }
    HRESULT CreateWithRelativeUri(HSTRING, HSTRING, abi::IUriRuntimeClass** result) noexcept override {
        return PerformInto(MethodName<Interface>("CreateWithRelativeUri"), "", result,
                           [] { return E_NOTIMPL; });
    }
};

}  // namespace

Ref<abi::IInspectable> MakeUriFactory() { return Ref<abi::IInspectable>::Attach(new UriFactory); }

std::string AbsoluteUri(abi::IUriRuntimeClass* uri) {
    const JournalPause no_journal;
    HSTRING absolute = nullptr;
    if (uri == nullptr || uri->get_AbsoluteUri(&absolute) < 0) {
        return {};
    }
    return TakeText(absolute);
}

}  // namespace dialsim
