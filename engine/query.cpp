#include "query.h"

#include <algorithm>
#include <charconv>

#include "error.h"

namespace engine {

namespace {

constexpr std::string_view kNameCharacters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";

enum class TokenKind { end, word, number, text, sign };

struct Token {
    TokenKind kind = TokenKind::end;
    std::string_view source;  ///< as it is written
    std::size_t position = 0;
};

char LowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

class Tokens {
public:
    explicit Tokens(std::string_view aText) : text(aText) { Advance(); }

    const Token& Peek() const { return token; }
    Token Take() {
        const Token taken = token;
        previousEnd = token.position + token.source.size();
        Advance();
        return taken;
    }
    /// Where the last token taken ends.
    std::size_t PreviousEnd() const { return previousEnd; }

    /// Words of the language, in any case, and signs.
    bool Is(std::string_view wanted) const {
        return (token.kind == TokenKind::word || token.kind == TokenKind::sign) &&
               std::ranges::equal(token.source, wanted, {}, LowerCase);
    }
    bool TakeIf(std::string_view wanted) {
        if (!Is(wanted)) return false;
        Take();
        return true;
    }
    void Expect(std::string_view wanted) {
        if (!TakeIf(wanted)) Fail(std::string("\"").append(wanted).append("\" is expected here"));
    }

    [[noreturn]] void Fail(const std::string& message) const { throw TextError(message, token.position); }

private:
    std::string_view text;
    std::size_t at = 0;
    Token token;
    std::size_t previousEnd = 0;

    void Advance() {
        at = std::min(text.find_first_not_of(" \t\r\n", at), text.size());
        token = {.kind = TokenKind::end, .source = {}, .position = at};
        if (at == text.size()) return;
        const char first = text[at];
        std::size_t end = at + 1;
        if (first == '"') {
            token.kind = TokenKind::text;
            end = EndOfText();
        } else if (StartsNumber()) {
            token.kind = TokenKind::number;
            end = text.find_first_not_of("0123456789.eExX+-abcdefABCDEF", at + 1);
        } else if (kNameCharacters.find(first) != std::string_view::npos) {
            token.kind = TokenKind::word;
            end = text.find_first_not_of(kNameCharacters, at);
        } else {
            token.kind = TokenKind::sign;
            const std::string_view two = text.substr(at, 2);
            if (two == "<=" || two == ">=" || two == "<>") end = at + 2;
        }
        end = std::min(end, text.size());
        token.source = text.substr(at, end - at);
        at = end;
    }

    bool StartsNumber() const {
        const auto digit = [this](std::size_t i) { return i < text.size() && text[i] >= '0' && text[i] <= '9'; };
        const char first = text[at];
        if (digit(at)) return true;
        if (first == '.') return digit(at + 1);
        return (first == '-' || first == '+') && (digit(at + 1) || (at + 1 < text.size() && text[at + 1] == '.'));
    }

    std::size_t EndOfText() const {
        for (std::size_t i = at + 1;; i += 2) {
            i = text.find('"', i);
            if (i == std::string_view::npos) throw TextError("the text that begins here does not end", at);
            if (i + 1 == text.size() || text[i + 1] != '"') return i + 1;
        }
    }
};

class Parser {
public:
    Parser(const Schema& aSchema, std::string_view aText) : schema(aSchema), text(aText), tokens(aText) {}

    Query Run() {
        std::vector<Token> columns = ReadColumns();
        ReadClass();
        for (const Token& column : columns) query.columns.push_back(AttributeAt(column));
        if (columns.empty())
            for (std::size_t i = 0; i < objectClass->attributes.size(); ++i) query.columns.push_back(i);
        if (tokens.TakeIf("where")) query.where = ReadAny();
        if (tokens.TakeIf("order")) ReadOrder();
        if (tokens.TakeIf("limit")) query.limit = ReadNumber("the number of objects");
        if (tokens.Peek().kind != TokenKind::end) tokens.Fail("the query does not go on like this");
        return std::move(query);
    }

private:
    const Schema& schema;
    std::string_view text;
    Tokens tokens;
    const Class* objectClass = nullptr;
    Query query;
    int depth = 0;

    /// The names in front of "from"; none when the query begins with its class.
    std::vector<Token> ReadColumns() {
        const Tokens start = tokens;
        std::vector<Token> columns;
        tokens.TakeIf("select");
        if (tokens.TakeIf("*")) {
            tokens.Expect("from");
            return {};
        }
        do columns.push_back(tokens.Take());
        while (tokens.TakeIf(","));
        if (tokens.TakeIf("from")) return columns;
        if (columns.size() > 1) tokens.Fail("\"from\" is expected here");
        tokens = start;
        return {};
    }

    void ReadClass() {
        const std::string_view name = tokens.Peek().source;
        const auto found = schema.Find(name);
        if (!found) {
            tokens.Fail(tokens.Peek().kind == TokenKind::end ? std::string("the name of a class is expected here")
                                                             : std::string("there is no class \"").append(name) + "\"");
        }
        tokens.Take();
        query.classAt = *found;
        objectClass = &schema.Classes()[*found];
    }

    std::size_t AttributeAt(const Token& token) const {
        const auto found = objectClass->Find(token.source);
        if (!found) {
            throw TextError(std::string(objectClass->name).append(" has no attribute \"").append(token.source) + "\"",
                            token.position);
        }
        return *found;
    }

    Condition ReadAny() {
        Condition any{.kind = Condition::Kind::any, .parts = {}, .comparison = {}};
        do any.parts.push_back(ReadAll());
        while (tokens.TakeIf("or"));
        return any.parts.size() == 1 ? std::move(any.parts.front()) : any;
    }

    Condition ReadAll() {
        Condition all;
        do all.parts.push_back(ReadOne());
        while (tokens.TakeIf("and"));
        return all.parts.size() == 1 ? std::move(all.parts.front()) : all;
    }

    Condition ReadOne() {
        constexpr int deepest = 200;
        if (!tokens.Is("(")) return ReadComparison();
        if (++depth > deepest) tokens.Fail("the brackets are nested too deeply");
        tokens.Take();
        Condition inside = ReadAny();
        tokens.Expect(")");
        --depth;
        return inside;
    }

    Condition ReadComparison() {
        const std::size_t begin = tokens.Peek().position;
        if (tokens.Peek().kind != TokenKind::word) tokens.Fail("an attribute is expected here");
        Condition condition{.kind = Condition::Kind::comparison, .parts = {}, .comparison = {}};
        Comparison& comparison = condition.comparison;
        comparison.attribute = AttributeAt(tokens.Take());
        const Attribute& attribute = objectClass->attributes[comparison.attribute];
        ReadElement(attribute, comparison);
        comparison.op = ReadRelation();
        ReadConstant(comparison);
        ReadModifiers(attribute, comparison);
        comparison.text = text.substr(begin, tokens.PreviousEnd() - begin);
        return condition;
    }

    void ReadElement(const Attribute& attribute, Comparison& comparison) {
        if (attribute.count == 1) return;
        if (!tokens.Is("[")) tokens.Fail("\"" + attribute.name + "\" is an array: which element?");
        tokens.Take();
        const std::size_t position = tokens.Peek().position;
        comparison.element = ReadNumber("an element's place");
        if (comparison.element >= attribute.count)
            throw TextError("\"" + attribute.name + "\" has the elements 0 to " + std::to_string(attribute.count - 1),
                            position);
        tokens.Expect("]");
    }

    unsigned short ReadRelation() {
        constexpr struct {
            std::string_view sign;
            unsigned relation;
        } relations[] = {{"=", KyCmpEqual},   {"<>", KyCmpLess | KyCmpGreater},
                         {"<", KyCmpLess},    {"<=", KyCmpLess | KyCmpEqual},
                         {">", KyCmpGreater}, {">=", KyCmpGreater | KyCmpEqual}};
        for (const auto& known : relations)
            if (tokens.TakeIf(known.sign)) return static_cast<unsigned short>(known.relation);
        tokens.Fail("one of = <> < <= > >= is expected here");
    }

    void ReadConstant(Comparison& comparison) {
        const Token token = tokens.Peek();
        comparison.constant = query.constants.size();
        query.constantPositions.push_back(token.position);
        if (tokens.Is("?")) {
            query.constants.emplace_back();
        } else if (token.kind == TokenKind::number) {
            query.constants.emplace_back(token.source);
        } else if (token.kind == TokenKind::text) {
            std::string content;
            for (std::size_t i = 1; i + 1 < token.source.size(); ++i) {
                content += token.source[i];
                if (token.source[i] == '"') ++i;  // of two, one
            }
            query.constants.emplace_back(content);
        } else {
            tokens.Fail("a number or a text in double quotes is expected here");
        }
        tokens.Take();
    }

    void ReadModifiers(const Attribute& attribute, Comparison& comparison) {
        for (;;) {
            unsigned bit = 0;
            if (tokens.Is("exact")) {
                bit = KyCmpExact;
            } else if (tokens.Is("nocase")) {
                bit = KyCmpIgnoreCase;
            } else if (tokens.Is("noaccent")) {
                bit = KyCmpIgnoreAccent;
            } else {
                return;
            }
            if (bit != KyCmpExact && attribute.type != KySTRING_T)
                tokens.Fail("this can be ignored in attributes of the type KyString only");
            comparison.op = static_cast<unsigned short>(comparison.op | bit);
            tokens.Take();
        }
    }

    void ReadOrder() {
        tokens.Expect("by");
        do {
            const Token token = tokens.Take();
            SortKey key{.attribute = AttributeAt(token)};
            const Attribute& attribute = objectClass->attributes[key.attribute];
            if (const char* why = WhyNotOrdered(attribute.type)) throw TextError(why, token.position);
            if (tokens.TakeIf("desc")) {
                key.descending = true;
            } else {
                tokens.TakeIf("asc");
            }
            query.order.push_back(key);
        } while (tokens.TakeIf(","));
    }

    std::size_t ReadNumber(const char* what) {
        const Token token = tokens.Peek();
        std::size_t number = 0;
        const char* const end = token.source.data() + token.source.size();
        const auto [read, error] = std::from_chars(token.source.data(), end, number);
        if (token.source.empty() || error != std::errc() || read != end)
            tokens.Fail(std::string(what) + " is a whole number");
        tokens.Take();
        return number;
    }
};

}  // namespace

Query ParseQuery(const Schema& schema, std::string_view text) { return Parser(schema, text).Run(); }

}  // namespace engine
