#include "world_json.h"

#include <charconv>
#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/utf16.h"
#include "clock_text.h"

namespace ferry::scripttools {

namespace {

using Json = nlohmann::json;
using OrderedJson = nlohmann::ordered_json;

/// What is wrong with a world; caught before it leaves this file, where the readers lie deep in each other.
class Mistake : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

[[noreturn]] void Complain(const std::string& where, const std::string& what) {
    throw Mistake(where + ": " + what);
}

std::wstring ReadText(const Json& value, const std::string& where) {
    if (!value.is_string())
        Complain(where, "this must be a text");
    return base::FromUtf8(value.get_ref<const std::string&>());
}

/// A whole number from `lowest` to `highest`.
std::int64_t ReadNumber(const Json& value, const std::string& where, std::int64_t lowest,
                        std::int64_t highest) {
    const bool isTooLarge =
        value.is_number_unsigned() &&
        value.get<std::uint64_t>() > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    const bool isWithin = value.is_number_integer() && !isTooLarge && value.get<std::int64_t>() >= lowest &&
                          value.get<std::int64_t>() <= highest;
    if (!isWithin) {
        Complain(where, "this must be a whole number from " + std::to_string(lowest) + " to " +
                            std::to_string(highest));
    }
    return value.get<std::int64_t>();
}

int ReadInt(const Json& value, const std::string& where) {
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(ReadNumber(value, where, Limits::min(), Limits::max()));
}

/// 32 bits, written with or without a sign.
std::uint32_t ReadBits(const Json& value, const std::string& where) {
    return static_cast<std::uint32_t>(ReadNumber(value, where, std::numeric_limits<std::int32_t>::min(),
                                                 std::numeric_limits<std::uint32_t>::max()));
}

std::uint32_t ReadMilliseconds(const Json& value, const std::string& where) {
    return static_cast<std::uint32_t>(ReadNumber(value, where, 0, std::numeric_limits<std::uint32_t>::max()));
}

bool ReadBool(const Json& value, const std::string& where) {
    if (!value.is_boolean())
        Complain(where, "this must be true or false");
    return value.get<bool>();
}

Bytes ReadBytes(const Json& value, const std::string& where) {
    auto bytes = BytesFromHex(ReadText(value, where));
    if (!bytes)
        Complain(where, "this must be hexadecimal digits, two for each byte");
    return *std::move(bytes);
}

HostSetting ReadSetting(const Json& value, const std::string& where) {
    if (value.is_string())
        return ReadText(value, where);
    if (!value.is_number())
        Complain(where, "this must be a text or a number");
    return ReadBits(value, where);
}

PretendedProgram ReadProgram(const Json& value, const std::string& where) {
    if (!value.is_array() || value.size() != 2)
        Complain(where, "this must be a list of two numbers: exit code and milliseconds");
    return {.ExitCode = ReadBits(value[0], where), .DurationMs = ReadMilliseconds(value[1], where)};
}

TraceKind ReadTrace(const Json& value, const std::string& where) {
    const std::wstring text = ReadText(value, where);
    if (text == L"trace")
        return TraceKind::Trace;
    if (text == L"debugger")
        return TraceKind::Debugger;
    Complain(where, R"(this must be null, "trace" or "debugger")");
}

calendar::CalendarFields ReadClock(const Json& value, const std::string& where) {
    const auto clock = ClockFromText(ReadText(value, where));
    if (!clock)
        Complain(where, "this must be a date and time that there is: YYYY-MM-DD HH:MM:SS");
    return *clock;
}

/// The entries of a list or the members of an object, each read by `read`.
template <class Read>
auto ReadList(const Json& value, const std::string& where, Read read) {
    if (!value.is_array())
        Complain(where, "this must be a list");
    std::vector<decltype(read(value, where))> list;
    for (const Json& entry : value)
        list.push_back(read(entry, where + "[" + std::to_string(list.size()) + "]"));
    return list;
}

/// Where the member `name` of what stands at `where` stands.
std::string MemberOf(const std::string& where, std::string_view name) {
    return std::string(where).append(".").append(name);
}

template <class Read>
auto ReadMap(const Json& value, const std::string& where, Read read) {
    if (!value.is_object())
        Complain(where, "this must be an object");
    std::map<std::wstring, decltype(read(value, where))> map;
    for (const auto& [name, entry] : value.items())
        map[base::FromUtf8(name)] = read(entry, MemberOf(where, name));
    return map;
}

std::map<int, int> ReadMetrics(const Json& value, const std::string& where) {
    if (!value.is_object())
        Complain(where, "this must be an object");
    std::map<int, int> metrics;
    for (const auto& [name, entry] : value.items()) {
        int index = 0;
        const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), index);
        if (error != std::errc() || end != name.data() + name.size())
            Complain(MemberOf(where, name), "the name of a metric is its index");
        metrics[index] = ReadInt(entry, MemberOf(where, name));
    }
    return metrics;
}

/// Reads the members of "world" that are there and not null.
class WorldReader {
public:
    explicit WorldReader(const Json& world) : world_(world) {}

    template <class Field, class Read>
    void Take(const char* name, Field& field, Read read) const {
        const auto found = world_.find(name);
        if (found != world_.end() && !found->is_null())
            field = read(*found, std::string("world.") + name);
    }

private:
    const Json& world_;
};

template <class Read>
auto ListOf(Read read) {
    return [read](const Json& value, const std::string& where) { return ReadList(value, where, read); };
}

template <class Read>
auto MapOf(Read read) {
    return [read](const Json& value, const std::string& where) { return ReadMap(value, where, read); };
}

WorldDescription ReadDescription(const Json& file) {
    if (!file.is_object())
        throw Mistake("a world file is an object");
    const auto member = file.find("world");
    if (member == file.end() || !member->is_object())
        Complain("world", "there must be such a member, an object");
    const WorldReader reader(*member);
    WorldDescription world;
    reader.Take("script", world.Script, ReadText);
    reader.Take("selection", world.Selection, ListOf(ReadText));
    reader.Take("clock", world.Clock, ReadClock);
    reader.Take("host_settings", world.HostSettings, MapOf(ReadSetting));
    reader.Take("env", world.Environment, MapOf(ReadText));
    reader.Take("answers", world.Answers, ListOf(ReadInt));
    reader.Take("programs", world.Programs, MapOf(ReadProgram));
    reader.Take("trace", world.Trace, ReadTrace);
    reader.Take("host_window", world.HasHostWindow, ReadBool);
    reader.Take("clipboard", world.Clipboard, ReadText);
    reader.Take("cwd", world.CurrentFolder, ReadText);
    reader.Take("login", world.LoginName, ReadText);
    reader.Take("local_appdata", world.LocalAppData, ReadText);
    reader.Take("exe_dir", world.ProgramFolder, ReadText);
    reader.Take("metrics", world.Metrics, ReadMetrics);
    reader.Take("dirs", world.Folders, ListOf(ReadText));
    reader.Take("files", world.Files, MapOf(ReadBytes));
    return world;
}

std::string InUtf8(std::wstring_view text) {
    return base::ToUtf8(text);
}

OrderedJson EffectToJson(const Effect& effect) {
    OrderedJson json{{"k", InUtf8(effect.Kind)}, {"t", InUtf8(effect.Text)}};
    if (effect.ByteCount)
        json["cb"] = *effect.ByteCount;
    return json;
}

}  // namespace

ReadWorld WorldFromJson(std::string_view json) {
    try {
        return {.World = ReadDescription(Json::parse(json)), .Mistake = {}};
    } catch (const Mistake& mistake) {
        return {.World = std::nullopt, .Mistake = mistake.what()};
    } catch (const Json::exception& exception) {
        return {.World = std::nullopt, .Mistake = exception.what()};
    }
}

std::string ResultToJson(std::span<const Effect> effects, const std::map<std::wstring, Bytes>& files,
                         script::RunResult result) {
    std::string json = "{\"effects\": [";
    for (const Effect& effect : effects)
        json += (&effect == effects.data() ? "\n" : ",\n") + EffectToJson(effect).dump();
    json += "],\n\"files\": {";
    const char* between = "\n";
    for (const auto& [path, content] : files) {
        json += std::exchange(between, ",\n") + Json(InUtf8(path)).dump() + ": \"" +
                InUtf8(HexDigits(content)) + '"';
    }
    return json + "},\n\"result\": " + std::to_string(static_cast<int>(result)) + "}\n";
}

}  // namespace ferry::scripttools
