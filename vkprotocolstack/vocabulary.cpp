#include "vkprotocolstack/vocabulary.h"

#include <iterator>

#include "vkprotocolstack/traffic/vehicle_size_keywords.h"

namespace jsonparser {
namespace {

template <std::size_t N>
constexpr Vocabulary Of(std::string_view name, std::string_view meaning, const Keyword (&rows)[N]) {
    return {name, meaning, rows, N};
}

constexpr Vocabulary kVocabularies[] = {
    Of("VehicleSize", "size of a vehicle, one bit for each word", kVehicleSizes),
};

}  // namespace

VocabularyList Vocabularies() { return {kVocabularies, std::size(kVocabularies)}; }

}  // namespace jsonparser
