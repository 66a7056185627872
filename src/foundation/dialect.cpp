// One walk over the statement's words. The last operand's place in the result is known, so that an operator
// can take it into a function.
#include "foundation/dialect.h"

#include <algorithm>
#include <cctype>

namespace vandrel {

namespace {

bool isWordCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || (c & 0x80) != 0;
}

bool equals(std::string_view word, std::string_view lower) {
    return std::ranges::equal(
        word, lower, [](char a, char b) { return std::tolower(static_cast<unsigned char>(a)) == b; });
}

class Translation {
  public:
    explicit Translation(std::string_view sql) : m_rest(sql) {}

    std::string run() {
        while (!m_rest.empty())
            step();
        return m_out;
    }

  private:
    void step() {
        const char c = m_rest.front();
        if (isWordCharacter(c)) {
            word(takeWhile(isWordCharacter));
        } else if (c == '\'' || c == '[' || c == '"') {
            operand(takeQuoted());
        } else if (c == '?') {
            operand(takePlaceholder());
        } else if (c == '=' && compareText("same_text")) {
            // The operand has gone into the function.
        } else {
            m_out += c;
            m_rest.remove_prefix(1);
        }
    }

    void word(std::string_view name) {
        if (equals(name, "like") && like()) return;
        if (equals(name, "default")) {
            operand("[DEFAULT]");
        } else if ((equals(name, "left") || equals(name, "mid")) && nextIs('(')) {
            const std::size_t start = m_out.size();
            const std::string arguments = dialect(takeBrackets());
            const std::size_t comma = arguments.rfind(',');
            m_out += "substr(";
            // left counts from the first character.
            if (equals(name, "left") && comma != std::string::npos)
                m_out += arguments.substr(0, comma) + ",1" + arguments.substr(comma);
            else
                m_out += arguments;
            m_out += ')';
            m_operand = start;
        } else {
            operand(name);
        }
    }

    // x like '*?1*' and its kind; false where it is none.
    bool like() {
        skipBlanks();
        if (nextIs('?')) {
            wrap("text_matches", takePlaceholder());
            return true;
        }
        const std::string_view literal = peekQuoted();
        if (literal.empty()) return false;
        std::string_view body = literal.substr(1, literal.size() - 2);
        const auto isWild = [](char c) { return c == '*' || c == '%'; };
        const bool before = !body.empty() && isWild(body.front());
        if (before) body.remove_prefix(1);
        const bool after = !body.empty() && isWild(body.back());
        if (after) body.remove_suffix(1);
        if (!isPlaceholder(body)) {
            std::string pattern(literal);
            std::ranges::replace(pattern, '%', '*');
            wrap("text_matches", pattern);
        } else if (before) {
            wrap("has_text", body);
        } else {
            wrap(after ? "begins_with" : "same_text", body);
        }
        m_rest.remove_prefix(literal.size());
        return true;
    }

    // x = '?1': false where no bound text follows.
    bool compareText(std::string_view function) {
        const std::string_view before = m_rest;
        m_rest.remove_prefix(1);
        skipBlanks();
        const std::string_view literal = peekQuoted();
        if (literal.size() > 2 && isPlaceholder(literal.substr(1, literal.size() - 2))) {
            m_rest.remove_prefix(literal.size());
            wrap(function, literal.substr(1, literal.size() - 2));
            return true;
        }
        m_rest = before;
        return false;
    }

    void wrap(std::string_view function, std::string_view argument) {
        std::string left = m_out.substr(m_operand);
        while (!left.empty() && left.back() == ' ')
            left.pop_back();
        m_out.resize(m_operand);
        m_out.append(function).append("(").append(left).append(",").append(argument).append(")");
    }

    void operand(std::string_view text) {
        m_operand = m_out.size();
        m_out += text;
    }

    bool nextIs(char c) const { return !m_rest.empty() && m_rest.front() == c; }
    void skipBlanks() {
        while (nextIs(' '))
            m_rest.remove_prefix(1);
    }
    template<class Test>
    std::string_view takeWhile(Test test) {
        const auto end = std::ranges::find_if_not(m_rest, test);
        const std::string_view taken(m_rest.begin(), end);
        m_rest.remove_prefix(taken.size());
        return taken;
    }
    std::string_view takePlaceholder() {
        const auto end = std::find_if_not(m_rest.begin() + 1, m_rest.end(), [](char c) {
            return std::isdigit(static_cast<unsigned char>(c)) != 0;
        });
        const std::string_view taken(m_rest.begin(), end);
        m_rest.remove_prefix(taken.size());
        return taken;
    }
    static bool isPlaceholder(std::string_view text) {
        return text.size() > 1 && text.front() == '?' && std::ranges::all_of(text.substr(1), [](char c) {
                   return std::isdigit(static_cast<unsigned char>(c)) != 0;
               });
    }
    // The quoted text that comes next, with its quotes; empty when none does.
    std::string_view peekQuoted() const {
        if (m_rest.empty() || m_rest.front() != '\'') return {};
        const std::size_t end = m_rest.find('\'', 1);
        return end == std::string_view::npos ? std::string_view() : m_rest.substr(0, end + 1);
    }
    std::string_view takeQuoted() {
        const char closing = m_rest.front() == '[' ? ']' : m_rest.front();
        const std::size_t end = m_rest.find(closing, 1);
        const std::string_view taken = m_rest.substr(0, end == std::string_view::npos ? end : end + 1);
        m_rest.remove_prefix(taken.size());
        return taken;
    }
    // What stands in the brackets that come next, which are taken; all the rest where none closes them.
    std::string_view takeBrackets() {
        std::size_t end = 1;
        for (int depth = 1; end < m_rest.size(); ++end) {
            if (m_rest[end] == '(') ++depth;
            if (m_rest[end] == ')' && --depth == 0) break;
        }
        const std::string_view inside = m_rest.substr(1, end - 1);
        m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
        return inside;
    }

    std::string_view m_rest;
    std::string m_out;
    std::size_t m_operand = 0;
};

} // namespace

std::string dialect(std::string_view sql) {
    return Translation(sql).run();
}

} // namespace vandrel
