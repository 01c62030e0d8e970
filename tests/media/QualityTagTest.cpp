#include "media/QualityTag.h"

#include <gtest/gtest.h>

#include <array>

namespace ornivo::testing {
namespace {

struct Row {
    QualityTag tag;
    std::string_view rawValue;
    std::string_view label;
};

constexpr std::array rows{
    Row{QualityTag::soft, "soft", "Soft"},
    Row{QualityTag::verySoft, "verySoft", "Very soft"},
    Row{QualityTag::highISO, "highISO", "High ISO"},
    Row{QualityTag::underexposed, "underexposed", "Underexposed"},
    Row{QualityTag::overexposed, "overexposed", "Overexposed"},
    Row{QualityTag::clipped, "clipped", "Clipped highlights"},
};

TEST(QualityTag, EveryCaseHasItsRawValueAndLabelInOrder) {
    const auto cases = allCases<QualityTag>();
    ASSERT_EQ(cases.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(cases[i], rows[i].tag);
        EXPECT_EQ(rawValue(rows[i].tag), rows[i].rawValue);
        EXPECT_EQ(fromRawValue<QualityTag>(rows[i].rawValue), rows[i].tag);
        EXPECT_EQ(label(rows[i].tag), rows[i].label);
    }
    EXPECT_EQ(fromRawValue<QualityTag>("Soft"), std::nullopt);
}

}  // namespace
}  // namespace ornivo::testing
