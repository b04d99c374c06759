#include "json_document.h"

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace marvane {

namespace {

// "LINE:COLUMN" of the last of the first `bytes` bytes of the text; both count from 1.
std::string placeInText(const std::string& text, size_t bytes)
{
    const size_t position = std::min(bytes > 0 ? bytes - 1 : 0, text.size());
    const auto before = text.begin() + static_cast<std::string::difference_type>(position);
    const auto line = 1 + std::count(text.begin(), before, '\n');
    const size_t lineEnd = position > 0 ? text.rfind('\n', position - 1) : std::string::npos;
    const size_t column = lineEnd == std::string::npos ? position + 1 : position - lineEnd;
    return std::to_string(line) + ":" + std::to_string(column);
}

// The JSON library's message without its prefix, which has the exception's id and the place.
std::string reasonIn(std::string_view message)
{
    for (const std::string_view introduction : {"column ", "] "}) {
        const size_t begin = message.find(introduction);
        if (begin != std::string_view::npos)
            message.remove_prefix(begin + introduction.size());
    }
    const size_t place = message.find_first_not_of("0123456789");
    if (place != std::string_view::npos && place > 0 && message.substr(place, 2) == ": ")
        message.remove_prefix(place + 2);
    return std::string(message);
}

// SAX handler that builds the document. Json::parse() would silently keep the last of two equal
// keys and gives no place for a number out of range.
class DocumentBuilder : public nlohmann::json_sax<Json> {
public:
    DocumentBuilder(const std::string& text, JsonFault* fault) : text_(text), fault_(fault) {}

    Json takeDocument() { return std::move(document_); }

    bool null() override { return addScalar(nullptr); }
    bool boolean(bool value) override { return addScalar(value); }
    bool number_integer(number_integer_t value) override { return addScalar(value); }
    bool number_unsigned(number_unsigned_t value) override { return addScalar(value); }
    bool number_float(number_float_t value, const string_t& /*text*/) override
    {
        return addScalar(value);
    }
    bool string(string_t& value) override { return addScalar(std::move(value)); }
    bool binary(binary_t& value) override { return addScalar(std::move(value)); }

    bool start_object(std::size_t /*elements*/) override { return open(Json::object()); }
    bool end_object() override { return close(); }
    bool start_array(std::size_t /*elements*/) override { return open(Json::array()); }
    bool end_array() override { return close(); }

    bool key(string_t& name) override
    {
        open_.back().key = name;
        if (!open_.back().value->contains(name))
            return true;
        *fault_ = {pointerToCurrent().to_string(), "the key occurs twice"};
        return false;
    }

    bool parse_error(std::size_t bytes, const std::string& /*token*/,
                     const nlohmann::detail::exception& error) override
    {
        *fault_ = {placeInText(text_, bytes), reasonIn(error.what())};
        return false;
    }

private:
    // An object or array whose end has not been read yet, and in an object the key of the value
    // that is being read.
    struct Open {
        Json* value;
        std::string key;
    };

    template <typename Value>
    bool addScalar(Value&& value)
    {
        add(Json(std::forward<Value>(value)));
        return true;
    }

    bool open(Json&& value)
    {
        open_.push_back({add(std::move(value)), {}});
        return true;
    }

    bool close()
    {
        open_.pop_back();
        return true;
    }

    Json* add(Json&& value)
    {
        if (open_.empty()) {
            document_ = std::move(value);
            return &document_;
        }
        Json& parent = *open_.back().value;
        if (parent.is_array()) {
            parent.push_back(std::move(value));
            return &parent.back();
        }
        return &(parent[open_.back().key] = std::move(value));
    }

    JsonPointer pointerToCurrent() const
    {
        JsonPointer pointer;
        for (const Open& level : open_) {
            if (level.value->is_array())
                pointer /= level.value->size() - 1;
            else
                pointer /= level.key;
        }
        return pointer;
    }

    const std::string& text_;
    JsonFault* fault_;
    Json document_;
    std::vector<Open> open_;
};

}  // namespace

std::optional<Json> parseJson(const std::string& text, JsonFault* fault)
{
    // The JSON library takes a zero byte as the end of the text.
    const size_t zero = text.find('\0');
    if (zero != std::string::npos) {
        *fault = {placeInText(text, zero + 1), "a zero byte"};
        return std::nullopt;
    }
    DocumentBuilder builder(text, fault);
    if (!Json::sax_parse(text, &builder))
        return std::nullopt;
    return builder.takeDocument();
}

}  // namespace marvane
