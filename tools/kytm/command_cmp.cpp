#include <nlohmann/json.hpp>

#include "commands.h"
#include "compare_word.h"
#include "texts.h"
#include "type_lookup.h"
#include "value.h"

namespace kytm {

ExitStatus CompareValues(const CompareOptions& options, Output& out) {
    const char id = FindUsableType(options.type);
    const unsigned short op = options.op ? ParseCompareWord(*options.op) : kDefaultCompareWord;
    TextForm form = FormOfTexts(id, options.texts);
    Scanner scanner(id, options.format ? options.format->c_str() : nullptr, form);
    const Values pair(id, 2);
    ExitStatus status = kDone;
    const std::string* texts[] = {&options.first, &options.second};
    for (std::size_t i = 0; i < 2; ++i) {
        const char* fault = scanner.ScanArgument(*texts[i], pair[i]);
        if (fault == nullptr) continue;
        Complain(Quoted(*texts[i]) + " does not scan as " + TypeName(id) + ": " + fault);
        status = kBadInput;
    }
    if (status != kDone) return status;

    int error = 0;
    const int result = Manager().Cmp(id, 0, pair[0], 0, pair[1], op, 1, KyFormMemory, error);
    const char* order = result < 0 ? "<" : result > 0 ? ">" : "=";
    if (options.json) {
        const nlohmann::ordered_json json = {{"type", TypeName(id)},
                                             {"id", static_cast<int>(id)},
                                             {"first", Utf8(options.first)},
                                             {"second", Utf8(options.second)},
                                             {"op", op},
                                             {"order", order},
                                             {"result", result},
                                             {"err", error}};
        out.Write(json.dump(2) + "\n");
    } else {
        out.Write(Paint().Heading(order) + "  result " + std::to_string(result) + "  err " + std::to_string(error) +
                  "\n");
    }
    return kDone;
}

}  // namespace kytm
