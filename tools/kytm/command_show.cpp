#include <nlohmann/json.hpp>

#include "commands.h"
#include "compare_word.h"
#include "texts.h"
#include "type_lookup.h"
#include "value.h"

namespace kytm {

namespace {

using Bytes = std::vector<unsigned char>;

struct StoredForm {
    unsigned char flag;
    Bytes bytes;
    unsigned hash;
};

struct PrintedText {
    std::string format;
    std::string text;
    bool comesBack;  ///< the text, scanned by the same format, compares equal to the value
};

struct Portrait {
    bool isNull;
    Bytes memory;
    unsigned hash;
    std::vector<StoredForm> stored;
    bool sameHash;  ///< in memory and all stored forms
    std::vector<PrintedText> texts;
};

StoredForm Store(char id, void* value, unsigned char flag) {
    KyTypeMgr& manager = Manager();
    StoredForm form{flag, Bytes(manager.DiskLenGet(id, value, flag, 1, KyFormMemory)), 0};
    if (form.bytes.empty()) return form;
    form.bytes.resize(manager.Store(id, form.bytes.data(), value, flag, 1));
    int error = 0;
    form.hash = manager.Hash(id, 0, form.bytes.data(), 1, flag, error);
    return form;
}

PrintedText Print(char id, void* value, const char* format, TextForm& form) {
    PrintedText printed{format != nullptr ? format : PrintFormat(id), PrintValue(id, value, format, form), false};
    const Values back(id, 1);
    Scanner scanner(id, format, form);
    printed.comesBack = scanner.Scan(printed.text, back[0]) == nullptr && CompareExactly(id, value, back[0]) == 0;
    return printed;
}

Portrait Describe(char id, void* value, const char* format, TextForm& form) {
    KyTypeMgr& manager = Manager();
    Portrait portrait{};
    portrait.isNull = manager.IsNullValue(id, value) != 0;
    const auto* bytes = static_cast<const unsigned char*>(value);
    portrait.memory.assign(bytes, bytes + manager.MemLenGet(id, 1));
    int error = 0;
    portrait.hash = manager.Hash(id, 0, value, 1, KyFormMemory, error);
    portrait.sameHash = true;
    for (const unsigned char flag : {KyFormNative, KyFormReversed}) {
        portrait.stored.push_back(Store(id, value, flag));
        portrait.sameHash = portrait.sameHash && portrait.stored.back().hash == portrait.hash;
    }
    if (format != nullptr) portrait.texts.push_back(Print(id, value, format, form));
    portrait.texts.push_back(Print(id, value, nullptr, form));
    return portrait;
}

nlohmann::ordered_json ToJson(const Portrait& portrait) {
    nlohmann::ordered_json json = {{"null", portrait.isNull},
                                   {"memory", {{"size", portrait.memory.size()}, {"bytes", HexBytes(portrait.memory)}}},
                                   {"stored", nlohmann::ordered_json::array()},
                                   {"hash", HexWord(portrait.hash)},
                                   {"sameHashInAllForms", portrait.sameHash},
                                   {"texts", nlohmann::ordered_json::array()}};
    for (const StoredForm& form : portrait.stored) {
        json["stored"].push_back({{"form", form.flag}, {"size", form.bytes.size()}, {"bytes", HexBytes(form.bytes)}});
    }
    for (const PrintedText& printed : portrait.texts) {
        json["texts"].push_back(
            {{"format", Utf8(printed.format)}, {"text", Utf8(printed.text)}, {"comesBack", printed.comesBack}});
    }
    return json;
}

constexpr std::size_t kLabelWidth = 8;
constexpr std::size_t kBytesShown = 64;

void WriteBytes(std::string_view label, std::string_view note, const Bytes& bytes, const Paint& paint, Output& out) {
    const std::size_t shown = std::min(bytes.size(), kBytesShown);
    std::string line = "  " + paint.Label(Padded(label, kLabelWidth));
    const std::string size = std::to_string(bytes.size());
    line.append(5 - std::min<std::size_t>(size.size(), 5), ' ').append(size).append(" bytes  ");
    line += HexBytes(std::span(bytes).first(shown));
    if (shown < bytes.size()) line += " ...";
    out.Write(line.append(note).append("\n"));
}

void WriteText(const PrintedText& printed, std::size_t formatWidth, const Paint& paint, Output& out) {
    out.Write("  " + paint.Label(Padded("text", kLabelWidth)) + Padded(printed.format, formatWidth) + "  " +
              Quoted(printed.text, 200) + "  " +
              (printed.comesBack ? paint.Good("comes back equal") : paint.Bad("does not come back equal")) + "\n");
}

void WriteBlock(char id, const std::string& given, const Portrait& portrait, const Paint& paint, Output& out) {
    out.Write(paint.Heading(TypeName(id) + " " + Quoted(given, 200)) + (portrait.isNull ? "  null" : "") + "\n");
    const bool isFixed = Manager().IsFixed(id) != 0;
    WriteBytes("memory", isFixed ? "" : "  (holds an address, not the content)", portrait.memory, paint, out);
    for (const StoredForm& form : portrait.stored) {
        WriteBytes("form " + std::to_string(form.flag), "", form.bytes, paint, out);
    }
    out.Write("  " + paint.Label(Padded("hash", kLabelWidth)) + HexWord(portrait.hash) + "  " +
              (portrait.sameHash ? paint.Good("the same in all forms") : paint.Bad("not the same in all forms")) +
              "\n");
    std::size_t width = 0;
    for (const PrintedText& printed : portrait.texts) width = std::max(width, printed.format.size());
    for (const PrintedText& printed : portrait.texts) WriteText(printed, width, paint, out);
}

}  // namespace

ExitStatus ShowValues(const ShowOptions& options, Output& out) {
    const char id = FindUsableType(options.type);
    const char* format = options.format ? options.format->c_str() : nullptr;
    TextForm form = FormOfTexts(id, options.texts, true);
    Scanner scanner(id, format, form);
    const Paint paint;
    nlohmann::ordered_json blocks = nlohmann::ordered_json::array();
    ExitStatus status = kDone;
    bool isFirst = true;
    for (const std::string& text : options.values) {
        const Values value(id, 1);
        const char* fault = scanner.ScanArgument(text, value[0]);
        nlohmann::ordered_json block = {
            {"type", TypeName(id)}, {"id", static_cast<int>(id)}, {"given", Utf8(text)}, {"scanned", fault == nullptr}};
        if (fault != nullptr) {
            status = kBadInput;
            block["reason"] = fault;
            out.Flush();
            Complain(Quoted(text) + " does not scan as " + TypeName(id) + ": " + fault);
        } else {
            const Portrait portrait = Describe(id, value[0], format, form);
            block.update(ToJson(portrait));
            if (!options.json) {
                if (!isFirst) out.Write("\n");
                isFirst = false;
                WriteBlock(id, text, portrait, paint, out);
            }
        }
        if (options.json) blocks.push_back(std::move(block));
    }
    if (options.json) out.Write(blocks.dump(2) + "\n");
    return status;
}

}  // namespace kytm
