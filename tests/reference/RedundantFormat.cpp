#include "RedundantFormat.h"

#include "Styles.h"

#include <string_view>

namespace reference {

namespace {

namespace model = standin::model;

class Names
{
public:
    template <class Value>
    void add(std::string_view name, const std::optional<Value>& direct, const std::optional<Value>& ofStyle)
    {
        if (!direct || direct != ofStyle)
            return;
        text += text.empty() ? "" : ", ";
        text += name;
    }

    std::string text;
};

} // namespace

std::string redundantFormat(const model::Story& story, model::Position position)
{
    const model::Paragraph paragraph = story.paragraphAt(position);
    const model::CharacterFormat& run = *story.runAt(position).format;
    // The paragraph's: a link may be underlined in a paragraph that is not.
    const model::FontProperties styles = model::Story::effectiveFont(*paragraph.format, {});
    Names names;
    names.add("name", run.font.name, styles.name);
    names.add("size", run.font.size, styles.size);
    names.add("bold", run.font.bold, styles.bold);
    names.add("italic", run.font.italic, styles.italic);
    names.add("strike", run.font.strikeThrough, styles.strikeThrough);
    names.add("hidden", run.font.hidden, styles.hidden);
    names.add("underline", run.font.underline, styles.underline);
    names.add("colour", run.font.color, styles.color);
    if (position == paragraph.end - 1)
        names.add("alignment", paragraph.format->properties.alignment,
                  paragraph.format->style->resolvedParagraph().alignment);
    return names.text;
}

} // namespace reference
