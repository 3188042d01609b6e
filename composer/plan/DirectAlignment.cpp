#include "DirectAlignment.h"

#include "ClientNumbers.h"
#include "StyleSheet.h"

namespace compose {

std::optional<int> directAlignment(const Paragraph& paragraph, StyleSheet& styles)
{
    if (!paragraph.alignment)
        return {};
    const int wanted = clientNumbers::wordAlignment(*paragraph.alignment);
    if (wanted == styles.alignmentOf(paragraph.style))
        return {};
    return wanted;
}

} // namespace compose
