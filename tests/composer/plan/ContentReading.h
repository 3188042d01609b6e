#pragma once

#include "Content.h"
#include "SampleStyles.h"
#include "StoryReading.h"

#include <vector>

/// The number of a field that stands for a picture.
inline constexpr int pictureNumber = 99;

/// Links to this bookmark lead nowhere.
inline constexpr std::u16string_view missingBookmark = u"missing";

/// What a story must hold that content says it does.
StoryReading readingOf(const compose::Blocks& blocks, const std::vector<compose::LinkTarget>& links,
                       SampleStyles& styles);

/// The font that a wish comes to in a paragraph of the style.
compose::Font wishedFont(const compose::FontWish* wish, const std::u16string& paragraphStyle,
                         SampleStyles& styles);
