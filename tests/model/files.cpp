#include "files.h"

#include "fuzz/unicode.h"
#include "support/file_uri.h"
#include "support/pictures.h"

namespace model {

namespace {

constexpr std::size_t kLargeSize = 2'000'000;
constexpr File kFiles[] = {File::LongFont, File::ShortFont, File::Picture, File::LargePicture, File::Damaged};

const std::vector<std::uint8_t>& LargePng() {
    static const std::vector<std::uint8_t> bytes = [] {
        std::vector<std::uint8_t> large = SmallPng();
        large.resize(kLargeSize);
        return large;
    }();
    return bytes;
}

}  // namespace

Files::Files() {
    for (const File file : kFiles) {
        const bool large = file == File::LargePicture;
        const bool damaged = file == File::Damaged;
        folder_.Write(NameOf(file), large     ? LargePng()
                                    : damaged ? std::vector<std::uint8_t>{'P', 'N', 'G'}
                                              : SmallPng());
    }
}

Files::~Files() {
    for (const File file : kFiles) {
        folder_.Remove(NameOf(file));
    }
}

std::string Files::NameOf(File file) const {
    switch (file) {
        case File::LongFont:
            return "model font.ttf";
        case File::ShortFont:
            return "FONT.TTF";
        case File::Picture:
            return "small.png";
        case File::LargePicture:
            return "large.png";
        case File::Damaged:
            return "damaged.png";
        default:
            return "missing.png";
    }
}

WideText Files::PathOf(File file) const {
    switch (file) {
        case File::Folder:
            return folder_.wide_path();
        case File::Relative:
            return Utf16Of("small.png");
        case File::Empty:
            return {};
        default:
            return folder_.WidePathOf(NameOf(file));
    }
}

File Files::Find(const WideText& path) const {
    for (const File file :
         {File::LongFont, File::ShortFont, File::Picture, File::LargePicture, File::Damaged, File::Folder}) {
        if (path == PathOf(file)) {
            return file;
        }
    }
    return path.empty() ? File::Empty : path == PathOf(File::Relative) ? File::Relative : File::Missing;
}

bool Files::Exists(const WideText& path) const { return Exists(Find(path)); }
bool Files::IsFile(const WideText& path) const { return Exists(path) && Find(path) != File::Folder; }
bool Files::IsRooted(const WideText& path) const {
    return Find(path) != File::Empty && Find(path) != File::Relative;
}

#ifdef _WIN32
WideText Files::ShortPathOf(const WideText& path) const {
    wchar_t text[MAX_PATH + 1];
    return {text, GetShortPathNameW(path.c_str(), text, MAX_PATH)};
}
#else
// The simulator shortens a name to six characters and a number, as the platform does for its first names.
WideText Files::ShortPathOf(const WideText& path) const {
    switch (Find(path)) {
        case File::LongFont:
            return folder_.WidePathOf("MODELF~1.TTF");
        default:
            return path;
    }
}
#endif

std::string Files::ShownPicture(const WideText& path) const {
    const File file = Find(path);
    return IsFile(path) && file != File::Damaged ? "PNG file 2x3" : "broken picture";
}

std::string Files::WithPath(std::string call) const {
    if (const std::size_t place = call.find('@'); place != std::string::npos) {
        call.replace(place, 1, Utf8Of(PathOf(File::LongFont)));
    }
    return call;
}

std::string Files::UriOf(const WideText& path) { return FileUriOf(Utf8Of(path)); }

std::uint64_t AddResources() {
#ifdef _WIN32
    return ModuleWithPng();
#else
    const std::vector<std::uint8_t>& large = LargePng();
    dialsim_add_resource(kModule, kSmallResource, "PNG", SmallPng().data(),
                         static_cast<std::uint32_t>(SmallPng().size()));
    dialsim_add_resource(kModule, kLargeResource, "PNG", large.data(),
                         static_cast<std::uint32_t>(large.size()));
    dialsim_add_resource(kModule, kDamagedResource, "PNG", "PNG", 3);
    return kModule;
#endif
}

#ifdef _WIN32
Resource ResourceOf(std::uint64_t identifier) {
    const HRSRC found =
        FindResourceW(nullptr, MAKEINTRESOURCEW(static_cast<std::uint16_t>(identifier)), L"PNG");
    return found == nullptr ? Resource() : Resource{SizeofResource(nullptr, found), "PNG image 2x3"};
}
#else
Resource ResourceOf(std::uint64_t identifier) {
    switch (identifier & 0xFFFF) {
        case kSmallResource:
            return {static_cast<std::uint32_t>(SmallPng().size()), "PNG image 2x3"};
        case kLargeResource:
            return {kLargeSize, "PNG image 2x3"};
        case kDamagedResource:
            return {3, "broken picture"};
        default:
            return {};
    }
}
#endif

std::string Utf8(const WideText& text) { return Utf8Of(text); }

}  // namespace model
