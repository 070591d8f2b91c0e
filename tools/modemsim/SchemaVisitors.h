// Walkers over the profile's field catalogue (ProfileSchema.h). Each struct
// lists its fields once, in a Describe(visitor, value) function; the visitors
// here give that one list three meanings:
//   FieldNames  - the names a JSON object may hold (to reject unknown fields),
//   FieldReader - read and check the fields from JSON, stopping at the first fault,
//   FieldWriter - write the fields back as JSON (for state patches).
// A Describe may end with Check(rule, value): a rule across the object's
// fields (a current value among the offered ones) that only the reader runs,
// once every field has read well.
// Faults are reported as "<path>: <problem>" with a path such as
// network.operators[2].plmn. Not thread-safe; one walk per visitor object.
#ifndef MODEMSIM_SCHEMAVISITORS_H
#define MODEMSIM_SCHEMAVISITORS_H

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

namespace modemsim {

using Json = nlohmann::json;

enum class Need { Required, Optional };

// What a rule across fields found wrong: the field to name, relative to the
// object ("band", "offered.bands"), and the problem.
struct FieldProblem {
    std::string field;
    std::string problem;
};

// A check on a text field, with the words that say what it wants.
struct TextRule {
    const char* expectation;                 // "5 or 6 digits"
    bool (*accepts)(std::string_view text);
};

std::string JoinPath(const std::string& path, std::string_view name);
std::string IndexPath(const std::string& path, std::size_t index);
std::string KeyPath(const std::string& path, std::string_view key);
// "a string", "an integer", ... for wrong-type messages.
const char* JsonTypeWords(const Json& value);
// The value quoted for a one-line message: control bytes escaped, long texts cut.
std::string QuoteForMessage(std::string_view text);

class FieldNames {
public:
    // Every field kind only records its name.
    template <typename... Args>
    void Number(const char* name, Args&&...) { m_names.insert(name); }
    template <typename... Args>
    void OptNumber(const char* name, Args&&...) { m_names.insert(name); }
    template <typename... Args>
    void Bool(const char* name, Args&&...) { m_names.insert(name); }
    template <typename... Args>
    void Text(const char* name, Args&&...) { m_names.insert(name); }
    template <typename... Args>
    void Object(const char* name, Args&&...) { m_names.insert(name); }
    template <typename... Args>
    void OptObject(const char* name, Args&&...) { m_names.insert(name); }
    template <typename... Args>
    void List(const char* name, Args&&...) { m_names.insert(name); }
    template <typename... Args>
    void NumberList(const char* name, Args&&...) { m_names.insert(name); }
    template <typename... Args>
    void TextList(const char* name, Args&&...) { m_names.insert(name); }
    template <typename... Args>
    void TextSet(const char* name, Args&&...) { m_names.insert(name); }
    template <typename... Args>
    void DelayMap(const char* name, Args&&...) { m_names.insert(name); }
    template <typename... Args>
    void Choice(const char* name, Args&&...) { m_names.insert(name); }
    template <typename... Args>
    void RawObject(const char* name, Args&&...) { m_names.insert(name); }
    // Not a field.
    template <typename... Args>
    void Check(Args&&...) {}

    bool Has(const std::string& name) const { return m_names.count(name) != 0; }

private:
    std::set<std::string> m_names;
};

class FieldReader;

// Reads one JSON object into value: unknown fields first, then each field in
// catalogue order. On a fault *pProblem gets "<path>: <problem>".
template <typename T>
bool ReadObject(const Json& object, const std::string& path, T& value, std::string* pProblem);

class FieldReader {
public:
    FieldReader(const Json& object, std::string path) : m_object(object), m_path(std::move(path)) {}

    bool Ok() const { return m_problem.empty(); }
    const std::string& Problem() const { return m_problem; }

    template <typename N>
    void Number(const char* name, N& value, int64_t lo, int64_t hi, Need need = Need::Required)
    {
        const Json* pField = Find(name, need);
        if (pField != nullptr) {
            std::optional<int64_t> n = ReadInteger(*pField, JoinPath(m_path, name), lo, hi);
            if (n) {
                value = static_cast<N>(*n);
            }
        }
    }

    template <typename N>
    void OptNumber(const char* name, std::optional<N>& value, int64_t lo, int64_t hi)
    {
        value.reset();
        const Json* pField = Find(name, Need::Optional);
        if (pField != nullptr) {
            std::optional<int64_t> n = ReadInteger(*pField, JoinPath(m_path, name), lo, hi);
            if (n) {
                value = static_cast<N>(*n);
            }
        }
    }

    void Bool(const char* name, bool& value, Need need = Need::Required);
    void Text(const char* name, std::string& value, const TextRule& rule,
              Need need = Need::Required);

    template <typename T>
    void Object(const char* name, T& value, Need need = Need::Required)
    {
        const Json* pField = Find(name, need);
        if (pField != nullptr) {
            std::string problem;
            if (!ReadObject(*pField, JoinPath(m_path, name), value, &problem)) {
                Fail(problem);
            }
        }
    }

    template <typename T>
    void OptObject(const char* name, std::optional<T>& value)
    {
        value.reset();
        const Json* pField = Find(name, Need::Optional);
        if (pField != nullptr) {
            T item{};
            std::string problem;
            if (ReadObject(*pField, JoinPath(m_path, name), item, &problem)) {
                value = std::move(item);
            } else {
                Fail(problem);
            }
        }
    }

    template <typename T>
    void List(const char* name, std::vector<T>& value, std::size_t maxCount,
              Need need = Need::Required)
    {
        const Json* pArray = FindArray(name, need, maxCount);
        if (pArray == nullptr) {
            return;
        }
        std::vector<T> items;
        for (std::size_t i = 0; i < pArray->size() && Ok(); ++i) {
            T item{};
            std::string problem;
            if (ReadObject((*pArray)[i], IndexPath(JoinPath(m_path, name), i), item, &problem)) {
                items.push_back(std::move(item));
            } else {
                Fail(problem);
            }
        }
        if (Ok()) {
            value = std::move(items);
        }
    }

    void NumberList(const char* name, std::vector<int32_t>& value, int64_t lo, int64_t hi,
                    std::size_t maxCount, Need need = Need::Required);
    void TextList(const char* name, std::vector<std::string>& value, const TextRule& rule,
                  std::size_t maxCount, Need need = Need::Required);
    void TextSet(const char* name, std::set<std::string>& value, const TextRule& rule,
                 std::size_t maxCount, Need need = Need::Required);
    // An object of "<key>": <number> pairs, each key checked by keyRule.
    void DelayMap(const char* name, std::map<std::string, uint32_t>& value,
                  const TextRule& keyRule, int64_t hi, Need need = Need::Required);

    template <typename E>
    void Choice(const char* name, std::optional<E>& value,
                const std::vector<std::pair<const char*, E>>& choices)
    {
        value.reset();
        const Json* pField = Find(name, Need::Optional);
        if (pField == nullptr) {
            return;
        }
        const std::string path = JoinPath(m_path, name);
        std::string words;
        for (const auto& choice : choices) {
            words += words.empty() ? "" : ", ";
            words += choice.first;
        }
        if (!pField->is_string()) {
            Fail(path + ": wrong type: expected a string (one of " + words + "), got " +
                 JsonTypeWords(*pField));
            return;
        }
        const std::string& text = pField->get_ref<const std::string&>();
        for (const auto& choice : choices) {
            if (text == choice.first) {
                value = choice.second;
                return;
            }
        }
        Fail(path + ": invalid value " + QuoteForMessage(text) + ": expected one of " + words);
    }

    // Any JSON object, kept as compact text for a later, separate check.
    void RawObject(const char* name, std::string& value, Need need = Need::Optional);

    // A rule across the fields of the object just read, run when they all read well.
    template <typename T>
    void Check(std::optional<FieldProblem> (*rule)(const T&), const T& value)
    {
        if (!Ok()) {
            return;
        }
        if (const std::optional<FieldProblem> found = rule(value)) {
            Fail(JoinPath(m_path, found->field) + ": " + found->problem);
        }
    }

private:
    const Json* Find(const char* name, Need need);
    const Json* FindArray(const char* name, Need need, std::size_t maxCount);
    std::optional<int64_t> ReadInteger(const Json& field, const std::string& path, int64_t lo,
                                       int64_t hi);
    bool CheckText(const Json& field, const std::string& path, const TextRule& rule);
    void Fail(const std::string& problem)
    {
        if (m_problem.empty()) {
            m_problem = problem;
        }
    }

    const Json& m_object;
    std::string m_path;
    std::string m_problem;
};

template <typename T>
bool ReadObject(const Json& object, const std::string& path, T& value, std::string* pProblem)
{
    const std::string where = path.empty() ? "(top level)" : path;
    if (!object.is_object()) {
        *pProblem = where + ": wrong type: expected an object, got " + JsonTypeWords(object);
        return false;
    }
    FieldNames names;
    Describe(names, value);
    for (const auto& item : object.items()) {
        if (!names.Has(item.key())) {
            *pProblem = JoinPath(path, item.key()) + ": unknown field";
            return false;
        }
    }
    FieldReader reader(object, path);
    Describe(reader, value);
    if (!reader.Ok()) {
        *pProblem = reader.Problem();
        return false;
    }
    return true;
}

class FieldWriter {
public:
    const Json& Result() const { return m_object; }

    template <typename N>
    void Number(const char* name, N& value, int64_t, int64_t, Need = Need::Required)
    {
        m_object[name] = static_cast<int64_t>(value);
    }
    template <typename N>
    void OptNumber(const char* name, std::optional<N>& value, int64_t, int64_t)
    {
        if (value) {
            m_object[name] = static_cast<int64_t>(*value);
        }
    }
    void Bool(const char* name, bool& value, Need = Need::Required) { m_object[name] = value; }
    template <typename E>
    void Choice(const char* name, std::optional<E>& value,
                const std::vector<std::pair<const char*, E>>& choices)
    {
        for (const auto& choice : choices) {
            if (value && choice.second == *value) {
                m_object[name] = choice.first;
            }
        }
    }
    void Text(const char* name, std::string& value, const TextRule&, Need = Need::Required)
    {
        m_object[name] = value;
    }
    template <typename T>
    void Object(const char* name, T& value, Need = Need::Required)
    {
        m_object[name] = Write(value);
    }
    template <typename T>
    void OptObject(const char* name, std::optional<T>& value)
    {
        if (value) {
            m_object[name] = Write(*value);
        }
    }
    template <typename T>
    void List(const char* name, std::vector<T>& value, std::size_t, Need = Need::Required)
    {
        Json array = Json::array();
        for (T& item : value) {
            array.push_back(Write(item));
        }
        m_object[name] = std::move(array);
    }
    void NumberList(const char* name, std::vector<int32_t>& value, int64_t, int64_t,
                    std::size_t, Need = Need::Required)
    {
        m_object[name] = value;
    }
    void TextList(const char* name, std::vector<std::string>& value, const TextRule&,
                  std::size_t, Need = Need::Required)
    {
        m_object[name] = value;
    }
    template <typename... Args>
    void Check(Args&&...) {}

    template <typename T>
    static Json Write(T& value)
    {
        FieldWriter writer;
        writer.m_object = Json::object();
        Describe(writer, value);
        return writer.m_object;
    }

private:
    Json m_object = Json::object();
};

}  // namespace modemsim

#endif
