// The items of the menu, by what their pictures come from.
#include <cstring>
#include <memory>
#include <new>

#include "bench/baseline/activation.h"
#include "bench/baseline/baseline.h"
#include "bench/baseline/handler.h"
#include "bench/baseline/text.h"
#include "platform/interfaces/storage_streams.h"

namespace baseline {

// Holds what brindle.h says of a load: the label, the identifier, and the window without a reference.
class Dial::FileHandler final : public Counted<abi::AsyncOperationCompletedHandler<abi::StorageFile>> {
public:
    FileHandler(Dial& dial, std::unique_ptr<WCHAR[]> label, std::uint32_t item_id)
        : dial_(dial), label_(std::move(label)), item_id_(item_id) {}

    // The platform gets each failure as a code.
    HRESULT Invoke(abi::IAsyncOperation<abi::StorageFile>* operation, abi::AsyncStatus status) override {
        if (status != abi::AsyncStatus::Completed && status != abi::AsyncStatus::Error) {
            return S_FALSE;
        }
        try {
            return dial_.OnFileOpened(operation, label_.get(), item_id_);
        } catch (const Failure& failure) {
            return failure.code;
        } catch (...) {
            return E_OUTOFMEMORY;
        }
    }

private:
    Dial& dial_;
    const std::unique_ptr<WCHAR[]> label_;
    const std::uint32_t item_id_;
};

namespace {

HSTRING LabelOf(HSTRING label, HSTRING_HEADER& header) {
    return Reference(WindowsGetStringRawBuffer(label, nullptr), header);
}

// Null when there is none, or when it has grown since its length was queried.
std::unique_ptr<WCHAR[]> ShortPath(const WCHAR* path) {
    const DWORD characters = GetShortPathNameW(path, nullptr, 0);
    if (characters == 0) {
        return nullptr;
    }
    std::unique_ptr<WCHAR[]> buffer(new WCHAR[characters]);
    const DWORD written = GetShortPathNameW(path, buffer.get(), characters);
    return written == 0 || written >= characters ? nullptr : std::move(buffer);
}

HRESULT WriteTo(HGLOBAL block, const void* bytes, DWORD size, abi::IStream*& stream) {
    if (CreateStreamOnHGlobal(block, 0, reinterpret_cast<::IStream**>(&stream)) < 0 || stream == nullptr) {
        return E_FAIL;
    }
    std::uint32_t written = 0;
    if (stream->Write(bytes, size, &written) < 0 || written < size) {
        return E_OUTOFMEMORY;
    }
    stream->Commit(abi::kCommitDefault);
    stream->Seek(0, abi::kSeekFromStart, nullptr);
    return S_OK;
}

HRESULT CopyTo(HGLOBAL& block, const void* bytes, DWORD size, abi::IStream*& stream) {
    block = GlobalAlloc(GMEM_MOVEABLE, size);
    void* const place = block == nullptr ? nullptr : GlobalLock(block);
    if (place == nullptr) {
        return E_FAIL;
    }
    std::memcpy(place, bytes, size);
    const HRESULT code = WriteTo(block, bytes, size, stream);
    GlobalUnlock(block);
    return code;
}

HRESULT LoadResourceStream(HMODULE module, std::uint16_t resource, HGLOBAL& block, abi::IStream*& stream) {
    const HRSRC found =
        FindResourceW(module, reinterpret_cast<const WCHAR*>(static_cast<std::uintptr_t>(resource)), u"PNG");
    if (found == nullptr) {
        return E_FAIL;
    }
    const DWORD size = SizeofResource(module, found);
    const HGLOBAL loaded = size == 0 ? nullptr : LoadResource(module, found);
    if (loaded == nullptr) {
        return E_FAIL;
    }
    const void* const bytes = LockResource(loaded);
    const HRESULT code = bytes == nullptr ? E_FAIL : CopyTo(block, bytes, size, stream);
    FreeResource(loaded);
    return code;
}

}  // namespace

HRESULT Dial::AddItem(const MenuItemDescription& description) {
    Entry entry = MakeEntry(description.display_text, description.item_id, description.haptic_feedback != 0);
    try {
        switch (description.kind) {
            case MenuItemKind::KnownIcon: {
                if (const HRESULT code = GetFactoryOrNull<abi::RadialControllerMenuItem>(items_); code < 0) {
                    Free(entry);
                    return code;
                }
                const auto icon = static_cast<abi::RadialControllerMenuKnownIcon>(description.source.number);
                if (const HRESULT code = AddKnownIcon(entry, icon); code < 0) {
                    LogFailure("AddMenuItemFromKnownIcon", code, 152);
                }
                Keep(entry);
                return S_OK;
            }
            case MenuItemKind::SystemFont: {
                HSTRING_HEADER headers[2];
                const HSTRING font_family = Reference(description.source2.text, headers[0]);
                const HSTRING glyph = Reference(description.source.text, headers[1]);
                if (const HRESULT code = AddSystemFont(entry, glyph, font_family); code < 0) {
                    LogFailure("AddMenuItemFromSystemFont", code, 157);
                }
                Keep(entry);
                return S_OK;
            }
            case MenuItemKind::CustomFont:
                AddCustomFont(entry, description);
                break;
            case MenuItemKind::FilePNG: {
                HSTRING_HEADER header;
                const HSTRING path = Reference(description.source.text, header);
                if (const HRESULT code = AddFile(entry, path); code < 0) {
                    LogFailure("AddMenuItemFromFilePNG", code, 199);
                }
                break;
            }
            case MenuItemKind::ResourcePNG: {
                const auto module = reinterpret_cast<HMODULE>(description.source.number);
                const auto resource = static_cast<std::uint32_t>(description.source2.number);
                if (const HRESULT code = AddResource(entry, module, resource); code < 0) {
                    LogFailure("AddMenuItemFromResourcePNG", code, 203);
                }
                break;
            }
            default:
                break;
        }
    } catch (...) {
        Free(entry);
        throw;
    }
    Free(entry);
    return S_OK;
}

// In the builders, an item that comes with a failure code is released and not added, and a null item fails.

HRESULT Dial::AddKnownIcon(Entry& entry, abi::RadialControllerMenuKnownIcon icon) {
    abi::IRadialControllerMenuItemStatics* const statics = items_;
    if (statics == nullptr) {
        return E_NOINTERFACE;
    }
    statics->AddRef();
    HRESULT code = E_NOINTERFACE;
    try {
        HSTRING_HEADER header;
        const HSTRING label = LabelOf(*entry.label, header);
        abi::IRadialControllerMenuItem* item = nullptr;
        const HRESULT made = statics->CreateFromKnownIcon(label, icon, &item);
        if (item != nullptr) {
            code = made < 0 ? made : AddToMenu(item, entry);
            item->Release();
        }
    } catch (...) {
        statics->Release();
        throw;
    }
    statics->Release();
    return code;
}

HRESULT Dial::AddSystemFont(Entry& entry, HSTRING glyph, HSTRING font_family) {
    abi::IRadialControllerMenuItemStatics2* statics = nullptr;
    HRESULT code = GetFactory<abi::RadialControllerMenuItem>(statics);
    if (code < 0) {
        return code;
    }
    try {
        HSTRING_HEADER header;
        const HSTRING label = LabelOf(*entry.label, header);
        abi::IRadialControllerMenuItem* item = nullptr;
        code = statics->CreateFromFontGlyph(label, glyph, font_family, &item);
        if (item == nullptr) {
            code = code < 0 ? code : E_NOINTERFACE;
        } else {
            if (code >= 0) {
                code = AddToMenu(item, entry);
            }
            item->Release();
        }
    } catch (...) {
        statics->Release();
        throw;
    }
    statics->Release();
    return code;
}

void Dial::AddCustomFont(Entry& entry, const MenuItemDescription& description) {
    const WCHAR* const path = description.source3.text;
    const auto short_path = PathFileExistsW(path) ? ShortPath(path) : nullptr;
    if (short_path == nullptr) {
        return;
    }
    HSTRING_HEADER headers[3];
    const HSTRING file = Reference(short_path.get(), headers[0]);
    const HSTRING font_family = Reference(description.source2.text, headers[1]);
    const HSTRING glyph = Reference(description.source.text, headers[2]);
    if (const HRESULT code = AddFontFile(entry, glyph, font_family, file); code < 0) {
        LogFailure("AddMenuItemFromCustomFont", code, 189);
    }
    Keep(entry);
}

HRESULT Dial::AddFontFile(Entry& entry, HSTRING glyph, HSTRING font_family, HSTRING path) {
    abi::IRadialControllerMenuItemStatics2* statics = nullptr;
    HRESULT code = GetFactory<abi::RadialControllerMenuItem>(statics);
    if (code < 0) {
        return code;
    }
    abi::IUriRuntimeClassFactory* uris = nullptr;
    code = GetFactory<abi::Uri>(uris);
    if (code < 0) {
        statics->Release();
        return code;
    }
    abi::IUriRuntimeClass* uri = nullptr;
    // Read and not used, as is the item's text; a failure ends the item.
    HSTRING absolute = nullptr;
    HSTRING text = nullptr;
    abi::IRadialControllerMenuItem* item = nullptr;
    const auto release = [&] {
        if (text != nullptr) {
            WindowsDeleteString(text);
        }
        if (item != nullptr) {
            item->Release();
        }
        if (absolute != nullptr) {
            WindowsDeleteString(absolute);
        }
        if (uri != nullptr) {
            uri->Release();
        }
        uris->Release();
        statics->Release();
    };
    try {
        code = uris->CreateUri(path, &uri);
        if (code >= 0 && uri == nullptr) {
            code = E_NOINTERFACE;
        }
        if (code >= 0 && (code = uri->get_AbsoluteUri(&absolute)) >= 0) {
            HSTRING_HEADER header;
            const HSTRING label = LabelOf(*entry.label, header);
            code = statics->CreateFromFontGlyphWithUri(label, glyph, font_family, uri, &item);
            if (code >= 0 && item == nullptr) {
                code = E_NOINTERFACE;
            }
            if (code >= 0 && (code = item->get_DisplayText(&text)) >= 0) {
                code = AddToMenu(item, entry);
            }
        }
    } catch (...) {
        release();
        throw;
    }
    release();
    return code;
}

HRESULT Dial::AddFile(const Entry& entry, HSTRING path) {
    abi::IStorageFileStatics* files = nullptr;
    HRESULT code = GetFactory<abi::StorageFile>(files);
    if (code < 0) {
        return code;
    }
    abi::IAsyncOperation<abi::StorageFile>* opening = nullptr;
    code = files->GetFileFromPathAsync(path, &opening);
    if (opening == nullptr) {
        files->Release();
        return code < 0 ? code : E_NOINTERFACE;
    }
    if (code >= 0) {
        const WCHAR* const label = WindowsGetStringRawBuffer(*entry.label, nullptr);
        const std::size_t size = std::char_traits<WCHAR>::length(label) + 1;
        FileHandler* handler = nullptr;
        try {
            std::unique_ptr<WCHAR[]> copy(new WCHAR[size]);
            std::memcpy(copy.get(), label, size * sizeof(WCHAR));
            handler = new FileHandler(*this, std::move(copy), entry.item_id);
        } catch (...) {
            opening->Release();
            files->Release();
            throw;
        }
        opening->put_Completed(handler);
        handler->Release();
    }
    opening->Release();
    files->Release();
    return code;
}

HRESULT Dial::OnFileOpened(abi::IAsyncOperation<abi::StorageFile>* operation, const WCHAR* label,
                           std::uint32_t item_id) {
    abi::IStorageFile* file = nullptr;
    HRESULT code = operation->GetResults(&file);
    if (file == nullptr) {
        return code;
    }
    abi::IRandomAccessStreamReferenceStatics* references = nullptr;
    abi::IRandomAccessStreamReference* picture = nullptr;
    abi::IRadialControllerMenuItemStatics* statics = nullptr;
    abi::IRadialControllerMenuItem* item = nullptr;
    Entry entry{};
    const auto release = [&] {
        Free(entry);
        if (item != nullptr) {
            item->Release();
        }
        if (statics != nullptr) {
            statics->Release();
        }
        if (picture != nullptr) {
            picture->Release();
        }
        if (references != nullptr) {
            references->Release();
        }
        file->Release();
    };
    try {
        if ((code = GetFactory<abi::RandomAccessStreamReference>(references)) >= 0 &&
            (code = references->CreateFromFile(file, &picture)) >= 0 &&
            (code = GetFactory<abi::RadialControllerMenuItem>(statics)) >= 0) {
            HSTRING_HEADER header;
            code = statics->CreateFromIcon(Reference(label, header), picture, &item);
            if (code >= 0) {
                entry = MakeEntry(label, item_id, false);
                code = item == nullptr ? E_NOINTERFACE : AddToMenu(item, entry);
            }
            if (code >= 0) {
                Keep(entry);
            }
        }
    } catch (...) {
        release();
        throw;
    }
    release();
    return code;
}

HRESULT Dial::AddResource(Entry& entry, HMODULE module, std::uint32_t resource) {
    HGLOBAL block = nullptr;
    abi::IStream* bytes = nullptr;
    const auto release = [&] {
        if (bytes != nullptr) {
            bytes->Release();
        }
        if (block != nullptr) {
            GlobalFree(block);
        }
    };
    HRESULT code = LoadResourceStream(module, static_cast<std::uint16_t>(resource), block, bytes);
    try {
        code = code < 0 ? E_FAIL : AddStream(entry, bytes, block);
    } catch (...) {
        release();
        throw;
    }
    release();
    return code;
}

HRESULT Dial::AddStream(Entry& entry, abi::IStream* bytes, HGLOBAL& block) {
    abi::IRandomAccessStreamReferenceStatics* references = nullptr;
    HRESULT code = GetFactory<abi::RandomAccessStreamReference>(references);
    if (code < 0) {
        return code;
    }
    abi::IRadialControllerMenuItemStatics* statics = nullptr;
    code = GetFactory<abi::RadialControllerMenuItem>(statics);
    if (code < 0) {
        references->Release();
        return code;
    }
    abi::IRandomAccessStream* stream = nullptr;
    abi::IRandomAccessStreamReference* picture = nullptr;
    abi::IRadialControllerMenuItem* item = nullptr;
    const auto release = [&] {
        if (item != nullptr) {
            item->Release();
        }
        if (picture != nullptr) {
            picture->Release();
        }
        if (stream != nullptr) {
            stream->Release();
        }
        statics->Release();
        references->Release();
    };
    try {
        code = CreateRandomAccessStreamOverStream(reinterpret_cast<::IStream*>(bytes), BSOS_DEFAULT,
                                                  abi::IRandomAccessStream::Iid,
                                                  reinterpret_cast<void**>(&stream));
        // A success without a picture adds nothing.
        if (code >= 0 && (code = references->CreateFromStream(stream, &picture)) >= 0 && picture != nullptr) {
            HSTRING_HEADER header;
            code = statics->CreateFromIcon(LabelOf(*entry.label, header), picture, &item);
            if (code < 0) {
                LogFailure("CreateFromIcon", code, 715);
            } else {
                code = item == nullptr ? E_NOINTERFACE : AddToMenu(item, entry);
                // Before the streams over it, once the item is added.
                GlobalFree(block);
                block = nullptr;
                if (code >= 0) {
                    Keep(entry);
                }
            }
        }
    } catch (...) {
        release();
        throw;
    }
    release();
    return code;
}

}  // namespace baseline
