#include "ClientCall.h"

#include "PrintableText.h"

#include <array>
#include <string_view>

namespace reference {

namespace {

enum class Arguments
{
    none,
    text,
    number,
    textAndNumber,
    numberAndFlag,
    textAndTarget
};

struct Signature
{
    std::string_view name;
    Arguments arguments;
};

constexpr std::array signatures = {
    Signature{"insertText", Arguments::text},
    Signature{"insertEndl", Arguments::none},
    Signature{"insertPageBreak", Arguments::none},
    Signature{"insertField", Arguments::number},
    Signature{"startHeader", Arguments::none},
    Signature{"endHeader", Arguments::none},
    Signature{"startFooter", Arguments::none},
    Signature{"endFooter", Arguments::none},
    Signature{"setStyle", Arguments::text},
    Signature{"setFontName", Arguments::text},
    Signature{"setFontSize", Arguments::number},
    Signature{"setFontAttribute", Arguments::numberAndFlag},
    Signature{"setTextAlign", Arguments::number},
    Signature{"insertTOC", Arguments::none},
    Signature{"startTOCEntry", Arguments::none},
    Signature{"endTOCEntry", Arguments::none},
    Signature{"startTable", Arguments::none},
    Signature{"endTable", Arguments::none},
    Signature{"addRow", Arguments::none},
    Signature{"addCell", Arguments::none},
    Signature{"setTableRowHeight", Arguments::number},
    Signature{"insertTag", Arguments::text},
    Signature{"insertXref", Arguments::textAndTarget},
    Signature{"insertImage", Arguments::textAndTarget},
    Signature{"insertFile", Arguments::textAndNumber},
    Signature{"setOrientation", Arguments::number},
};

std::string stepOf(const ClientCall& call)
{
    const Signature& signature = signatures.at(static_cast<std::size_t>(call.method));
    std::string step(signature.name);
    switch (signature.arguments) {
    case Arguments::none:
        break;
    case Arguments::text:
        step += '\t' + printable(call.text);
        break;
    case Arguments::number:
        step += '\t' + std::to_string(call.number);
        break;
    case Arguments::textAndNumber:
        step += '\t' + printable(call.text) + '\t' + std::to_string(call.number);
        break;
    case Arguments::numberAndFlag:
        step += '\t' + std::to_string(call.number) + '\t' + (call.isOn ? '1' : '0');
        break;
    case Arguments::textAndTarget:
        step += '\t' + printable(call.text) + '\t' + printable(call.target);
        break;
    }
    return step;
}

} // namespace

std::string stepsOf(const Session& session)
{
    std::string steps;
    for (const ClientCall& call : session)
        steps += stepOf(call) + '\n';
    return steps;
}

} // namespace reference
