// What the notes of each maker tell of pictures in the file and of colours. Where the tags stand
// and what their offsets count from was found out by the authors of ExifTool and Exiv2.

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "platform/ExifFacts.h"
#include "platform/RawContainerKinds.h"

namespace ornivo {
namespace {

struct Note {
    TiffStructure structure;
    TiffEntries entries;
};

/// The notes begin with a mark, then has a directory of the same structure as the file's EXIF
/// (`none`), or of one whose offsets count from the mark, or one with a header of its own.
enum class NoteBase { ofFile, ofNote, ownHeader };

enum class Maker { nikon, olympus, sony, canon };

struct NoteForm {
    std::string_view mark;
    std::uint32_t length;
    NoteBase base;
    Maker maker;
};

using namespace std::string_view_literals;

/// The longer of two marks that begin alike stands first. Canon's notes have none.
constexpr std::array forms{
    NoteForm{"Nikon\0"sv, 10, NoteBase::ownHeader, Maker::nikon},
    NoteForm{"OLYMPUS\0"sv, 12, NoteBase::ofNote, Maker::olympus},
    NoteForm{"OM SYSTEM\0"sv, 16, NoteBase::ofNote, Maker::olympus},
    NoteForm{"OLYMP\0"sv, 8, NoteBase::ofFile, Maker::olympus},
    NoteForm{"SONY DSC \0"sv, 12, NoteBase::ofFile, Maker::sony},
    NoteForm{""sv, 0, NoteBase::ofFile, Maker::canon},
};

std::optional<Note> noteOf(const ByteSource& source, const TiffStructure& file,
                           const NoteForm& form, std::uint64_t at) {
    if (form.base == NoteBase::ownHeader) {
        const auto structure = TiffStructure::withHeader(source, at + form.length);
        auto entries = structure ? structure->directory(structure->first()) : std::nullopt;
        return entries ? std::optional(Note{*structure, *std::move(entries)}) : std::nullopt;
    }
    const bool isOfNote = form.base == NoteBase::ofNote;
    const TiffStructure structure = isOfNote ? TiffStructure(source, at, file.isBigEndian()) : file;
    const std::uint64_t inStructure = at + form.length - structure.placeOf(0);
    auto entries = structure.directory(static_cast<std::uint32_t>(inStructure));
    return entries ? std::optional(Note{structure, *std::move(entries)}) : std::nullopt;
}

/// Offers the JPEG whose offset and length two tags tell.
void offerFrom(const ByteSource& source, const TiffStructure& structure, const TiffEntries& entries,
               std::uint16_t offsetTag, std::uint16_t lengthTag, RawContainer& container) {
    const auto offset = structure.number(entries, offsetTag);
    const auto length = structure.number(entries, lengthTag);
    if (!offset || !length) return;
    offerPicture(source, {.range = {structure.placeOf(*offset), *length}, .size = {}}, container);
}

void takeNikonNote(const ByteSource& source, const Note& note, RawContainer& container) {
    constexpr std::uint16_t previewTag = 0x0011;
    constexpr std::uint16_t colourSpaceTag = 0x001E;
    constexpr std::uint16_t profileTag = 0x0E1D;
    constexpr std::uint32_t adobeRGB = 2;
    const auto& [structure, entries] = note;
    const auto at = structure.number(entries, previewTag);
    const auto preview = at ? structure.directory(*at) : std::nullopt;
    if (preview) offerFrom(source, structure, *preview, 0x0201, 0x0202, container);
    if (structure.number(entries, colourSpaceTag) == adobeRGB) {
        container.colours = ColourSpace::adobeRGB;
    }
    const TiffEntry* profile = entries.find(profileTag);
    if (profile) container.profile = {profile->valueAt, profile->count};
}

/// The directory within another one that a tag points at, or that is the tag's value.
std::optional<TiffEntries> directoryAt(const TiffStructure& structure, const TiffEntries& entries,
                                       std::uint16_t tag) {
    constexpr std::uint16_t typeUndefined = 7;
    const TiffEntry* entry = entries.find(tag);
    if (!entry) return std::nullopt;
    if (entry->type == typeUndefined) {
        const std::uint64_t inStructure = entry->valueAt - structure.placeOf(0);
        return structure.directory(static_cast<std::uint32_t>(inStructure));
    }
    const auto at = structure.number(entries, tag);
    return at ? structure.directory(*at) : std::nullopt;
}

void takeOlympusNote(const ByteSource& source, const Note& note, RawContainer& container) {
    constexpr std::uint16_t settingsTag = 0x2020;
    constexpr std::uint16_t colourSpaceTag = 0x0507;
    constexpr std::uint32_t adobeRGB = 1;
    constexpr std::uint32_t proPhoto = 2;
    const auto& [structure, entries] = note;
    offerFrom(source, structure, entries, 0x0088, 0x0089, container);
    const auto settings = directoryAt(structure, entries, settingsTag);
    if (!settings) return;
    offerFrom(source, structure, *settings, 0x0101, 0x0102, container);
    const auto colours = structure.number(*settings, colourSpaceTag);
    if (colours == adobeRGB) container.colours = ColourSpace::adobeRGB;
    if (colours == proPhoto) container.colours = ColourSpace::proPhoto;
}

void takeSonyNote(const ByteSource& source, const Note& note, RawContainer& container) {
    constexpr std::uint16_t previewTag = 0x2001;
    const TiffEntry* preview = note.entries.find(previewTag);
    if (!preview) return;
    offerPicture(source, {.range = {preview->valueAt, preview->count}, .size = {}}, container);
}

}  // namespace

void takeMakerNote(const ByteSource& source, const TiffStructure& structure,
                   const TiffEntries& exif, RawContainer& container) {
    constexpr std::uint32_t longestMark = 10;
    const TiffEntry* entry = exif.find(tiffTag::makerNote);
    if (!entry) return;
    const std::string head = structure.text(exif, tiffTag::makerNote, longestMark);
    const auto hasMark = [&](const NoteForm& form) { return head.starts_with(form.mark); };
    const NoteForm& form = *std::ranges::find_if(forms, hasMark);
    const auto note = noteOf(source, structure, form, entry->valueAt);
    if (!note) return;
    switch (form.maker) {
        case Maker::nikon:
            return takeNikonNote(source, *note, container);
        case Maker::olympus:
            return takeOlympusNote(source, *note, container);
        case Maker::sony:
            return takeSonyNote(source, *note, container);
        case Maker::canon:
            return takeCanonNote(note->structure, note->entries, container);
    }
}

}  // namespace ornivo
