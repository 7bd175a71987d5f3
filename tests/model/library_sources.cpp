// The five sources of menu items.
#include "library_model.h"

namespace model {

namespace {

constexpr char kReferences[] = "Windows.Storage.Streams.RandomAccessStreamReference";
constexpr char kStatics[] = "IRadialControllerMenuItemStatics";
constexpr char kStatics2[] = "IRadialControllerMenuItemStatics2";
constexpr char kIcons[][18] = {"Scroll", "Zoom",     "UndoRedo",     "Volume", "NextPreviousTrack",
                               "Ruler",  "InkColor", "InkThickness", "PenType"};

}  // namespace

Ref<MenuItem> Library::NewItem(const WideText& label, const std::string& source, const Ref<Picture>& icon) {
    auto item = platform_.Make<MenuItem>(Utf8(label), source);
    item->icon = icon;
    return item;
}

Code Library::AddKnownIcon(Listener& listener, const Entry& entry, std::uint32_t icon) {
    const Ref<Object> statics = listener.item_statics;
    if (!statics) {
        return kNoInterface;
    }
    const WideText label = Reference(entry.label->text);
    Ref<MenuItem> item;
    if (const End end =
            FetchStep(515, std::string(kStatics) + "::CreateFromKnownIcon", std::to_string(icon), item, [&] {
                if (icon >= std::size(kIcons)) {
                    return kInvalidArgument;
                }
                item = NewItem(label, std::string("known icon ") + kIcons[icon]);
                return 0;
            })) {
        return *end;
    }
    return Guarded(517, [&] { return AddItemToMenu(listener, item, entry); }).value_or(0);
}

Code Library::AddGlyph(Listener& listener, const Entry& entry, const WideText& glyph,
                       const WideText& family) {
    Ref<Object> statics;
    if (const End end = FactoryStep(528, kItem, statics)) {
        return *end;
    }
    const WideText label = Reference(entry.label->text);
    const std::string source = "glyph " + Utf8(glyph) + " of " + Utf8(family);
    Ref<MenuItem> item;
    if (const End end = FetchStep(531, std::string(kStatics2) + "::CreateFromFontGlyph", source, item, [&] {
            item = NewItem(label, source);
            return 0;
        })) {
        return *end;
    }
    return Guarded(533, [&] { return AddItemToMenu(listener, item, entry); }).value_or(0);
}

// Empty where the file or its short path is not available.
std::optional<WideText> Library::ShortPath(const WideText& path) {
    const std::string shown = Utf8(path);
    const bool exists =
        platform_.Answer<bool>("PathFileExistsW", shown, false, [&] { return platform_.files.Exists(path); });
    if (!exists) {
        return std::nullopt;
    }
    const WideText short_path = platform_.files.Exists(path) ? platform_.files.ShortPathOf(path) : WideText();
    const auto length = static_cast<std::uint32_t>(short_path.size());
    const auto ask = [&](std::uint32_t size) {
        return platform_.Answer<std::uint32_t>(
            "GetShortPathNameW", shown + ", " + std::to_string(size), 0, [&] {
                return length == 0 ? 0 : size <= length ? length + 1 : length;
            });
    };
    const std::uint32_t size = ask(0);
    if (size == 0) {
        return std::nullopt;
    }
    const std::uint32_t copied = ask(size);
    return copied == 0 || copied >= size ? std::nullopt : std::optional(short_path);
}

void Library::AddFontGlyph(Listener& listener, const Entry& entry, const Item& item) {
    const auto short_path = ShortPath(platform_.files.PathOf(item.file));
    if (!short_path) {
        return;
    }
    const WideText path = Reference(*short_path);
    const WideText family = Reference(item.family);
    const WideText glyph = Reference(item.glyph);
    Logged("AddMenuItemFromCustomFont", 189, [&] { return AddGlyphOfFile(listener, entry, glyph, path); });
    listener.entries.push_back(entry);
}

Code Library::AddGlyphOfFile(Listener& listener, const Entry& entry, const WideText& glyph,
                             const WideText& path) {
    Ref<Object> statics;
    if (const End end = FactoryStep(543, kItem, statics)) {
        return *end;
    }
    Ref<Object> uris;
    if (const End end = FactoryStep(552, "Windows.Foundation.Uri", uris)) {
        return *end;
    }
    std::string uri;
    if (const End end = FetchStep(556, "IUriRuntimeClassFactory::CreateUri", Utf8(path), uri, [&] {
            uri = path.empty() ? "" : Files::UriOf(path);
            return path.empty() ? kInvalidArgument : 0;
        })) {
        return *end;
    }
    if (uri.empty()) {
        return kNoInterface;
    }
    if (const End end = CallStep(562, "IUriRuntimeClass::get_AbsoluteUri")) {
        return *end;
    }
    const WideText label = Reference(entry.label->text);
    const std::string source = "glyph " + Utf8(glyph) + " of font file " + uri;
    Ref<MenuItem> item;
    if (const End end =
            FetchStep(567, std::string(kStatics2) + "::CreateFromFontGlyphWithUri", source, item, [&] {
                item = NewItem(label, source);
                return 0;
            })) {
        return *end;
    }
    if (!item) {
        return kNoInterface;
    }
    if (const End end = CallStep(573, "IRadialControllerMenuItem::get_DisplayText")) {
        return *end;
    }
    return Guarded(575, [&] { return AddItemToMenu(listener, item, entry); }).value_or(0);
}

Code Library::AddFile(Listener& listener, const Entry& entry, const WideText& path) {
    Ref<Object> statics;
    if (const End end = FactoryStep(586, "Windows.Storage.StorageFile", statics)) {
        return *end;
    }
    Ref<AsyncOperation> operation;
    if (const End end =
            FetchStep(589, "IStorageFileStatics::GetFileFromPathAsync", Utf8(path), operation, [&] {
                const Code code = !platform_.files.IsRooted(path) ? kInvalidArgument
                                  : !platform_.files.IsFile(path) ? kFileNotFound
                                                                  : 0;
                operation =
                    platform_.StartAsync("IAsyncOperation<StorageFile>", "StorageFile", code,
                                         code < 0 ? nullptr : Ref<Object>(platform_.Make<OpenedFile>(path)));
                return 0;
            })) {
        return *end;
    }
    if (!operation) {
        return kNoInterface;
    }
    const auto handler = [this, &listener, label = entry.label->text, id = entry.id](
                             const Ref<AsyncOperation>& completed, Status status) {
        return OnFileOpened(listener, *completed, status, label, id);
    };
    platform_.Call("IAsyncOperation<StorageFile>::put_Completed", "", [&] {
        platform_.Attach(operation, [handler](const Ref<AsyncOperation>& completed, Status status) {
            try {
                return handler(completed, status);
            } catch (const PlatformError& error) {
                return error.code;
            }
        });
        return 0;
    });
    return 0;
}

Code Library::OnFileOpened(Listener& listener, const AsyncOperation& operation, Status status,
                           const WideText& label, std::uint32_t id) {
    if (status == kStatusStarted || status == kStatusCanceled) {
        return 1;
    }
    Ref<Object> result;
    const Code results = platform_.Fetch("IAsyncOperation<StorageFile>::GetResults", "", result,
                                         [&] { return operation.Results(result); });
    const auto* file = dynamic_cast<const OpenedFile*>(result.get());
    if (file == nullptr) {
        return results;
    }
    Ref<Object> references;
    if (const End end = FactoryStep(627, kReferences, references)) {
        return *end;
    }
    Ref<Picture> picture;
    if (const End end = FetchStep(
            630, "IRandomAccessStreamReferenceStatics::CreateFromFile", Utf8(file->path), picture, [&] {
                picture = platform_.Make<Picture>(platform_.files.ShownPicture(file->path));
                return 0;
            })) {
        return *end;
    }
    Ref<Object> statics;
    if (const End end = FactoryStep(639, kItem, statics)) {
        return *end;
    }
    const WideText shown_label = Reference(label);
    Ref<MenuItem> item;
    if (const End end =
            FetchStep(642, std::string(kStatics) + "::CreateFromIcon", Utf8(shown_label), item, [&] {
                item = picture ? NewItem(shown_label, picture->shown, picture) : nullptr;
                return picture ? 0 : kInvalidArgument;
            })) {
        return *end;
    }
    const Entry entry{Duplicate(Reference(label)), id, false};
    if (const End end = Guarded(649, [&] { return AddItemToMenu(listener, item, entry); })) {
        return *end;
    }
    listener.entries.push_back(entry);
    return 0;
}

Code Library::AddResource(Listener& listener, const Entry& entry, std::uint64_t id) {
    Ref<Object> stream;
    bool block = false;
    const auto free_block = [&] {
        if (block) {
            platform_.Call("GlobalFree", "");
        }
    };
    try {
        const Code code =
            LoadResource(id, stream, block) ? AddPicture(listener, entry, ResourceOf(id), stream) : kFail;
        free_block();
        return code;
    } catch (const PlatformError&) {
        free_block();
        throw;
    }
}

bool Library::LoadResource(std::uint64_t id, Ref<Object>& stream, bool& block) {
    const Resource resource = ResourceOf(id);
    if (!platform_.AnswerHandle("FindResourceW", std::to_string(id & 0xFFFF) + ", PNG", resource.size != 0)) {
        return false;
    }
    const auto size = platform_.Answer<std::uint32_t>("SizeofResource", "", 0, [&] { return resource.size; });
    if (size == 0 || !platform_.AnswerHandle("LoadResource")) {
        return false;
    }
    bool written = false;
    if (platform_.AnswerHandle("LockResource")) {
        block = platform_.AnswerHandle("GlobalAlloc", "2, " + std::to_string(size));
        if (block && platform_.AnswerHandle("GlobalLock")) {
            written = WriteResource(resource, stream);
            platform_.Call("GlobalUnlock", "");
        }
    }
    platform_.Call("FreeResource", "");
    return written;
}

bool Library::WriteResource(const Resource& resource, Ref<Object>& stream) {
    if (platform_.Fetch("CreateStreamOnHGlobal", "0", stream,
                        [&] {
                            stream = platform_.Make<Object>("IStream");
                            return 0;
                        }) < 0 ||
        !stream) {
        return false;
    }
    std::uint32_t written = 0;
    if (platform_.Call("IStream::Write", std::to_string(resource.size),
                       [&] {
                           written = resource.size;
                           return 0;
                       }) < 0 ||
        written < resource.size) {
        return false;
    }
    platform_.Call("IStream::Commit", "0");
    platform_.Call("IStream::Seek", "0, 0");
    return true;
}

Code Library::AddPicture(Listener& listener, const Entry& entry, const Resource& resource,
                         const Ref<Object>& stream) {
    Ref<Object> references;
    if (const End end = FactoryStep(671, kReferences, references)) {
        return *end;
    }
    Ref<Object> statics;
    if (const End end = FactoryStep(676, kItem, statics)) {
        return *end;
    }
    Ref<Object> random_access;
    if (const End end = FetchStep(700, "CreateRandomAccessStreamOverStream", "0", random_access, [&] {
            random_access = platform_.Make<StreamOverStream>(stream);
            return 0;
        })) {
        return *end;
    }
    Ref<Picture> picture;
    if (const End end =
            FetchStep(706, "IRandomAccessStreamReferenceStatics::CreateFromStream", "", picture, [&] {
                if (random_access) {
                    picture = platform_.Make<Picture>(resource.shown);
                    picture->stream = random_access;
                }
                return picture ? 0 : kInvalidArgument;
            })) {
        return *end;
    }
    if (!picture) {
        return 0;
    }
    const WideText label = Reference(entry.label->text);
    Ref<MenuItem> item;
    const Code made = platform_.Fetch(std::string(kStatics) + "::CreateFromIcon", Utf8(label), item, [&] {
        item = NewItem(label, picture->shown, picture);
        return 0;
    });
    if (made < 0) {
        Print("CreateFromIcon", made, 715);
        return made;
    }
    const Code added = AddItemToMenu(listener, item, entry);
    if (added < 0) {
        Print("", added, 727);
        return added;
    }
    listener.entries.push_back(entry);
    return 0;
}

}  // namespace model
