// The free-threaded marshaler: every apartment of the process gets a pointer to the object itself.
#include <atomic>

#include "simulator/functions/marshal.h"
#include "simulator/functions/real.h"
#include "simulator/instruments/leak_tracker.h"

namespace dialsim {

namespace {

namespace abi = brindle::abi;

// The marshaled data is a pointer.
constexpr std::uint32_t kSize = sizeof(void*);

// Aggregated by an outer object. This class's IUnknown counts its own references; the IUnknown methods of its
// IMarshal are delegated to the outer object.
class Marshaler final : public abi::IUnknown {
public:
    explicit Marshaler(abi::IUnknown* outer) : marshal_(outer == nullptr ? this : outer) {
        TheLeakTracker().TrackObject(this, "FreeThreadedMarshaler", references_);
    }

    HRESULT QueryInterface(const GUID& iid, void** object) noexcept override {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        if (abi::SameId(iid, abi::IUnknown::Iid)) {
            AddRef();
            *object = static_cast<abi::IUnknown*>(this);
            return S_OK;
        }
        if (abi::SameId(iid, IMarshal::Iid)) {
            marshal_.AddRef();
            *object = static_cast<IMarshal*>(&marshal_);
            return S_OK;
        }
        return E_NOINTERFACE;
    }
    std::uint32_t AddRef() noexcept override { return ++references_; }
    std::uint32_t Release() noexcept override {
        const std::uint32_t left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

private:
    class Marshal final : public IMarshal {
    public:
        explicit Marshal(abi::IUnknown* outer) : outer_(outer) {}

        HRESULT QueryInterface(const GUID& iid, void** object) noexcept override {
            return outer_->QueryInterface(iid, object);
        }
        std::uint32_t AddRef() noexcept override { return outer_->AddRef(); }
        std::uint32_t Release() noexcept override { return outer_->Release(); }

        HRESULT GetUnmarshalClass(const IID&, void*, DWORD, void*, DWORD,
                                  GUID* unmarshaler) noexcept override {
            *unmarshaler = kFreeThreadedMarshaler;
            return S_OK;
        }
        HRESULT GetMarshalSizeMax(const IID&, void*, DWORD, void*, DWORD, DWORD* size) noexcept override {
            *size = kSize;
            return S_OK;
        }
        // The marshaled data owns a reference.
        HRESULT MarshalInterface(abi::IStream* stream, const IID& iid, void*, DWORD, void*,
                                 DWORD) noexcept override {
            abi::IUnknown* object = nullptr;
            if (const HRESULT code = outer_->QueryInterface(iid, reinterpret_cast<void**>(&object));
                code < 0) {
                return code;
            }
            const HRESULT code = stream->Write(&object, kSize, nullptr);
            if (code < 0) {
                object->Release();
            }
            return code;
        }
        HRESULT UnmarshalInterface(abi::IStream* stream, const IID& iid, void** object) noexcept override {
            abi::IUnknown* object_in_stream = nullptr;
            if (const HRESULT code = stream->Read(&object_in_stream, kSize, nullptr); code < 0) {
                return code;
            }
            const HRESULT code = object_in_stream->QueryInterface(iid, object);
            object_in_stream->Release();
            return code;
        }
        HRESULT ReleaseMarshalData(abi::IStream* stream) noexcept override {
            abi::IUnknown* object_in_stream = nullptr;
            const HRESULT code = stream->Read(&object_in_stream, kSize, nullptr);
            if (code >= 0) {
                object_in_stream->Release();
            }
            return code;
        }
        HRESULT DisconnectObject(DWORD) noexcept override { return S_OK; }

    private:
        abi::IUnknown* const outer_;  // not owned: the outer object owns this one
    };

    ~Marshaler() { TheLeakTracker().UntrackObject(this); }

    std::atomic<std::uint32_t> references_{1};
    Marshal marshal_;
};

}  // namespace

namespace real {

HRESULT CoCreateFreeThreadedMarshaler(::IUnknown* outer, ::IUnknown** marshaler) {
    *marshaler = reinterpret_cast<::IUnknown*>(
        static_cast<abi::IUnknown*>(new Marshaler(reinterpret_cast<abi::IUnknown*>(outer))));
    return S_OK;
}

}  // namespace real

}  // namespace dialsim
