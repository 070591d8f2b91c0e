// The non-template parts of the field readers: lookups, type words, integer
// and text checks, and the one-line quoting of bad values.

#include "SchemaVisitors.h"

#include <cstdio>
#include <limits>

namespace modemsim {

namespace {

// Long enough to recognise a value, short enough to keep the message on one line.
constexpr std::size_t kQuotedTextMax = 48;

}  // namespace

std::string JoinPath(const std::string& path, std::string_view name)
{
    if (path.empty()) {
        return std::string(name);
    }
    std::string joined = path;
    joined += '.';
    joined += name;
    return joined;
}

std::string IndexPath(const std::string& path, std::size_t index)
{
    return path + "[" + std::to_string(index) + "]";
}

std::string KeyPath(const std::string& path, std::string_view key)
{
    return path + "[" + QuoteForMessage(key) + "]";
}

const char* JsonTypeWords(const Json& value)
{
    switch (value.type()) {
    case Json::value_t::null:
        return "null";
    case Json::value_t::object:
        return "an object";
    case Json::value_t::array:
        return "an array";
    case Json::value_t::string:
        return "a string";
    case Json::value_t::boolean:
        return "a boolean";
    case Json::value_t::number_integer:
    case Json::value_t::number_unsigned:
        return "an integer";
    case Json::value_t::number_float:
        return "a fractional number";
    case Json::value_t::binary:
    case Json::value_t::discarded:
        break;
    }
    return "an unknown value";
}

std::string QuoteForMessage(std::string_view text)
{
    std::string quoted = "\"";
    std::size_t shown = 0;
    for (char ch : text) {
        if (shown == kQuotedTextMax) {
            quoted += "...";
            break;
        }
        const unsigned char byte = static_cast<unsigned char>(ch);
        if (byte < 0x20 || byte == 0x7f || ch == '"' || ch == '\\') {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\x%02x", byte);
            quoted += escaped;
        } else {
            quoted += ch;
        }
        ++shown;
    }
    quoted += '"';
    return quoted;
}

const Json* FieldReader::Find(const char* name, Need need)
{
    if (!Ok()) {
        return nullptr;
    }
    auto it = m_object.find(name);
    if (it == m_object.end()) {
        if (need == Need::Required) {
            Fail(JoinPath(m_path, name) + ": missing required field");
        }
        return nullptr;
    }
    return &*it;
}

const Json* FieldReader::FindArray(const char* name, Need need, std::size_t maxCount)
{
    const Json* pField = Find(name, need);
    if (pField == nullptr) {
        return nullptr;
    }
    const std::string path = JoinPath(m_path, name);
    if (!pField->is_array()) {
        Fail(path + ": wrong type: expected an array, got " + JsonTypeWords(*pField));
        return nullptr;
    }
    if (pField->size() > maxCount) {
        Fail(path + ": too many entries: " + std::to_string(pField->size()) + " (at most " +
             std::to_string(maxCount) + ")");
        return nullptr;
    }
    return pField;
}

std::optional<int64_t> FieldReader::ReadInteger(const Json& field, const std::string& path,
                                                int64_t lo, int64_t hi)
{
    if (!field.is_number_integer()) {
        Fail(path + ": wrong type: expected an integer, got " + JsonTypeWords(field));
        return std::nullopt;
    }
    const std::string range = std::to_string(lo) + ".." + std::to_string(hi);
    if (field.is_number_unsigned() &&
        field.get<uint64_t>() > static_cast<uint64_t>(std::numeric_limits<int64_t>::max())) {
        Fail(path + ": out of range: " + std::to_string(field.get<uint64_t>()) +
             " is not within " + range);
        return std::nullopt;
    }
    const int64_t n = field.get<int64_t>();
    if (n < lo || n > hi) {
        Fail(path + ": out of range: " + std::to_string(n) + " is not within " + range);
        return std::nullopt;
    }
    return n;
}

bool FieldReader::CheckText(const Json& field, const std::string& path, const TextRule& rule)
{
    if (!field.is_string()) {
        Fail(path + ": wrong type: expected a string (" + rule.expectation + "), got " +
             JsonTypeWords(field));
        return false;
    }
    const std::string& text = field.get_ref<const std::string&>();
    if (!rule.accepts(text)) {
        Fail(path + ": invalid value " + QuoteForMessage(text) + ": expected " +
             rule.expectation);
        return false;
    }
    return true;
}

void FieldReader::Bool(const char* name, bool& value, Need need)
{
    const Json* pField = Find(name, need);
    if (pField == nullptr) {
        return;
    }
    if (!pField->is_boolean()) {
        Fail(JoinPath(m_path, name) + ": wrong type: expected a boolean, got " +
             JsonTypeWords(*pField));
        return;
    }
    value = pField->get<bool>();
}

void FieldReader::Text(const char* name, std::string& value, const TextRule& rule, Need need)
{
    const Json* pField = Find(name, need);
    if (pField != nullptr && CheckText(*pField, JoinPath(m_path, name), rule)) {
        value = pField->get<std::string>();
    }
}

void FieldReader::NumberList(const char* name, std::vector<int32_t>& value, int64_t lo,
                             int64_t hi, std::size_t maxCount, Need need)
{
    const Json* pArray = FindArray(name, need, maxCount);
    if (pArray == nullptr) {
        return;
    }
    std::vector<int32_t> numbers;
    for (std::size_t i = 0; i < pArray->size(); ++i) {
        std::optional<int64_t> n =
            ReadInteger((*pArray)[i], IndexPath(JoinPath(m_path, name), i), lo, hi);
        if (!n) {
            return;
        }
        numbers.push_back(static_cast<int32_t>(*n));
    }
    value = std::move(numbers);
}

void FieldReader::TextList(const char* name, std::vector<std::string>& value,
                           const TextRule& rule, std::size_t maxCount, Need need)
{
    const Json* pArray = FindArray(name, need, maxCount);
    if (pArray == nullptr) {
        return;
    }
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < pArray->size(); ++i) {
        if (!CheckText((*pArray)[i], IndexPath(JoinPath(m_path, name), i), rule)) {
            return;
        }
        texts.push_back((*pArray)[i].get<std::string>());
    }
    value = std::move(texts);
}

void FieldReader::TextSet(const char* name, std::set<std::string>& value, const TextRule& rule,
                          std::size_t maxCount, Need need)
{
    std::vector<std::string> texts;
    TextList(name, texts, rule, maxCount, need);
    if (Ok()) {
        value = std::set<std::string>(texts.begin(), texts.end());
    }
}

void FieldReader::DelayMap(const char* name, std::map<std::string, uint32_t>& value,
                           const TextRule& keyRule, int64_t hi, Need need)
{
    const Json* pField = Find(name, need);
    if (pField == nullptr) {
        return;
    }
    const std::string path = JoinPath(m_path, name);
    if (!pField->is_object()) {
        Fail(path + ": wrong type: expected an object, got " + JsonTypeWords(*pField));
        return;
    }
    std::map<std::string, uint32_t> delays;
    for (const auto& item : pField->items()) {
        const std::string itemPath = KeyPath(path, item.key());
        if (!keyRule.accepts(item.key())) {
            Fail(itemPath + ": invalid command key: expected " + keyRule.expectation);
            return;
        }
        std::optional<int64_t> n = ReadInteger(item.value(), itemPath, 0, hi);
        if (!n) {
            return;
        }
        delays[item.key()] = static_cast<uint32_t>(*n);
    }
    value = std::move(delays);
}

void FieldReader::RawObject(const char* name, std::string& value, Need need)
{
    const Json* pField = Find(name, need);
    if (pField == nullptr) {
        return;
    }
    if (!pField->is_object()) {
        Fail(JoinPath(m_path, name) + ": wrong type: expected an object, got " +
             JsonTypeWords(*pField));
        return;
    }
    value = pField->dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace modemsim
