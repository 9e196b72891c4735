#include "simulator/Scenario.h"

#include "simulator/Text.h"

#include <cstdlib>

namespace sim {

namespace {

struct NamedResult {
    const char *name;
    HRESULT value;
};

const NamedResult kNamedResults[] = {
    {"S_OK", S_OK},
    {"S_FALSE", S_FALSE},
    {"E_FAIL", E_FAIL},
    {"E_INVALIDARG", E_INVALIDARG},
    {"E_NOTIMPL", E_NOTIMPL},
    {"E_OUTOFMEMORY", E_OUTOFMEMORY},
    {"E_ACCESSDENIED", E_ACCESSDENIED},
    {"E_NOINTERFACE", E_NOINTERFACE},
    {"E_POINTER", E_POINTER},
    {"E_UNEXPECTED", E_UNEXPECTED},
    {"E_ABORT", E_ABORT},
    {"REGDB_E_CLASSNOTREG", REGDB_E_CLASSNOTREG},
    {"RPC_E_SERVERFAULT", RPC_E_SERVERFAULT},
    {"RPC_S_SERVER_UNAVAILABLE", HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE)},
};

std::string Quote(const std::string &text) {
    return "\"" + text + "\"";
}

unsigned ParseDelay(const Json &value, const std::string &path) {
    if (!value.is_number_unsigned() || value.get<unsigned long long>() > 600000)
        throw ScenarioError(path + ": expected a number of milliseconds from 0 to 600000");
    return value.get<unsigned>();
}

std::string ParseText(const Json &value, const std::string &path) {
    if (!value.is_string())
        throw ScenarioError(path + ": expected a string");
    return value.get<std::string>();
}

Json ParseEvents(const Json &events, const std::string &here, const Catalog &catalog, std::vector<std::string> &problems) {
    if (!events.is_array()) {
        problems.push_back(here + ": expected an array of events");
        return Json::array();
    }
    for (size_t i = 0; i < events.size(); ++i) {
        const Json &event = events[i];
        const std::string at = here + "[" + std::to_string(i) + "]";
        if (!event.is_object() || !event.contains("event") || !event["event"].is_string()) {
            problems.push_back(at + ": expected an object with an \"event\" name");
            continue;
        }
        auto known = catalog.events.find(event["event"].get<std::string>());
        if (known == catalog.events.end()) {
            problems.push_back(at + ".event: unknown event " + Quote(event["event"].get<std::string>()));
            continue;
        }
        Json arguments = event;
        arguments.erase("event");
        try {
            known->second(arguments, at);
        } catch (const ScenarioError &error) {
            problems.push_back(error.what());
        }
    }
    return events;
}

Response ParseResponse(const Json &value, const std::string &path, const Catalog &catalog, const DataCheck &check,
                       std::vector<std::string> &problems) {
    Response response;
    if (!value.is_object()) {
        problems.push_back(path + ": expected an object (one response) or an array of objects");
        return response;
    }
    auto attempt = [&](auto &&step) {
        try {
            step();
        } catch (const ScenarioError &error) {
            problems.push_back(error.what());
        }
    };
    for (auto it = value.begin(); it != value.end(); ++it) {
        const std::string key = it.key();
        const std::string here = path + "." + key;
        if (key == "result")
            attempt([&] { response.result = ParseResult(*it, here); });
        else if (key == "errorDescription")
            attempt([&] { response.errorDescription = ParseText(*it, here); });
        else if (key == "delayMs")
            attempt([&] { response.delayMs = ParseDelay(*it, here); });
        else if (key == "events")
            response.events = ParseEvents(*it, here, catalog, problems);
        else if (key == "lateEvents")
            response.lateEvents = ParseEvents(*it, here, catalog, problems);
        else if (key == "lateDelayMs")
            attempt([&] { response.lateDelayMs = ParseDelay(*it, here); });
        else if (key == "dieDuringCall") {
            if (it->is_boolean())
                response.dieDuringCall = it->get<bool>();
            else
                problems.push_back(here + ": expected true or false");
        } else
            response.data[key] = *it;
    }
    if (check)
        attempt([&] { check(response.data, path); });
    return response;
}

void ParseClasses(const Json &classes, const Catalog &catalog, Scenario &out, std::vector<std::string> &problems) {
    if (!classes.is_object()) {
        problems.push_back("classes: expected an object keyed by class name");
        return;
    }
    for (auto it = classes.begin(); it != classes.end(); ++it) {
        const std::string path = "classes." + it.key();
        auto known = catalog.classInterfaces.find(it.key());
        if (known == catalog.classInterfaces.end()) {
            problems.push_back(path + ": unknown class");
            continue;
        }
        if (!it->is_object()) {
            problems.push_back(path + ": expected an object");
            continue;
        }
        ClassSpec spec;
        for (auto field = it->begin(); field != it->end(); ++field) {
            const std::string here = path + "." + field.key();
            try {
                if (field.key() == "createResult")
                    spec.createResult = ParseResult(*field, here);
                else if (field.key() == "createErrorDescription")
                    spec.createErrorDescription = ParseText(*field, here);
                else if (field.key() == "missingInterfaces") {
                    if (!field->is_array())
                        throw ScenarioError(here + ": expected an array of interface names");
                    for (const Json &name : *field) {
                        if (!name.is_string() || known->second.count(name.get<std::string>()) == 0)
                            throw ScenarioError(here + ": " + name.dump() + " is not an interface of " + it.key());
                        spec.missingInterfaces.insert(name.get<std::string>());
                    }
                } else
                    throw ScenarioError(here + ": unknown setting (expected createResult, createErrorDescription, "
                                               "missingInterfaces)");
            } catch (const ScenarioError &error) {
                problems.push_back(error.what());
            }
        }
        out.classes[it.key()] = spec;
    }
}

void ParseMethods(const Json &methods, const Catalog &catalog, Scenario &out, std::vector<std::string> &problems) {
    if (!methods.is_object()) {
        problems.push_back("methods: expected an object keyed by \"Interface.Method\"");
        return;
    }
    for (auto it = methods.begin(); it != methods.end(); ++it) {
        const std::string path = "methods." + it.key();
        auto known = catalog.methods.find(it.key());
        if (known == catalog.methods.end()) {
            problems.push_back(path + ": unknown method (expected \"Interface.Method\", e.g. IVirtualDisk.EnumerateDisks)");
            continue;
        }
        std::vector<Response> responses;
        if (it->is_array()) {
            if (it->empty())
                problems.push_back(path + ": an empty list of responses");
            for (size_t i = 0; i < it->size(); ++i)
                responses.push_back(
                    ParseResponse((*it)[i], path + "[" + std::to_string(i) + "]", catalog, known->second, problems));
        } else
            responses.push_back(ParseResponse(*it, path, catalog, known->second, problems));
        for (size_t i = 0; i < responses.size(); ++i)
            responses[i].index = static_cast<int>(i);
        out.methods[it.key()] = std::move(responses);
    }
}

} // namespace

const ClassSpec *Scenario::FindClass(const std::string &name) const {
    auto it = classes.find(name);
    return it == classes.end() ? nullptr : &it->second;
}

HRESULT ParseResult(const Json &value, const std::string &path) {
    if (value.is_number_integer()) {
        long long number = value.get<long long>();
        if (number >= -2147483648LL && number <= 0xFFFFFFFFLL)
            return static_cast<HRESULT>(static_cast<unsigned long>(number & 0xFFFFFFFF));
    } else if (value.is_string()) {
        const std::string text = value.get<std::string>();
        for (const NamedResult &named : kNamedResults)
            if (text == named.name)
                return named.value;
        if (text.size() > 2 && text.size() <= 10 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
            char *end = nullptr;
            unsigned long long number = std::strtoull(text.c_str() + 2, &end, 16);
            if (end != nullptr && *end == '\0')
                return static_cast<HRESULT>(static_cast<unsigned long>(number));
        }
    }
    throw ScenarioError(path + ": expected a result code: a 32-bit number, a hexadecimal text such as \"0x80070057\" "
                               "or a name such as \"E_FAIL\"");
}

std::vector<std::string> ParseScenario(const std::string &text, const Catalog &catalog, Scenario &out) {
    std::vector<std::string> problems;
    Json root;
    try {
        root = Json::parse(text);
    } catch (const Json::parse_error &error) {
        problems.push_back(std::string("not valid JSON: ") + error.what());
        return problems;
    }
    if (!root.is_object()) {
        problems.push_back("the scenario must be a JSON object");
        return problems;
    }
    Scenario scenario;
    for (auto it = root.begin(); it != root.end(); ++it) {
        const std::string &key = it.key();
        try {
            if (key == "description")
                scenario.description = ParseText(*it, key);
            else if (key == "callLog")
                scenario.callLog = HostPath(Widen(ParseText(*it, key)));
            else if (key == "lingerSeconds") {
                if (!it->is_number() || it->get<double>() < 0 || it->get<double>() > 3600)
                    throw ScenarioError("lingerSeconds: expected a number of seconds from 0 to 3600");
                scenario.lingerMs = static_cast<unsigned>(it->get<double>() * 1000);
            } else if (key == "classes")
                ParseClasses(*it, catalog, scenario, problems);
            else if (key == "methods")
                ParseMethods(*it, catalog, scenario, problems);
            else
                throw ScenarioError(key + ": unknown setting (expected description, callLog, lingerSeconds, classes, "
                                          "methods)");
        } catch (const ScenarioError &error) {
            problems.push_back(error.what());
        }
    }
    if (problems.empty())
        out = std::move(scenario);
    return problems;
}

void Engine::Load(const std::string &text) {
    std::lock_guard<std::mutex> guard(lock_);
    if (loaded_ && text == text_)
        return;
    ++generation_;
    Scenario scenario;
    std::vector<std::string> problems = ParseScenario(text, catalog_, scenario);
    if (!problems.empty()) {
        loaded_ = false;
        text_.clear();
        scenario_ = Scenario();
        std::string message;
        for (const std::string &problem : problems)
            message += (message.empty() ? "" : "\n") + problem;
        throw ScenarioError(message);
    }
    loaded_ = true;
    text_ = text;
    scenario_ = std::move(scenario);
}

bool Engine::Loaded() const {
    std::lock_guard<std::mutex> guard(lock_);
    return loaded_;
}

Scenario Engine::Current() const {
    std::lock_guard<std::mutex> guard(lock_);
    return scenario_;
}

Response Engine::Next(const std::string &methodKey, ResponsePositions &positions) {
    std::lock_guard<std::mutex> guard(lock_);
    if (positions.scenario != generation_) {
        positions.calls.clear();
        positions.scenario = generation_;
    }
    auto it = scenario_.methods.find(methodKey);
    if (it == scenario_.methods.end() || it->second.empty())
        return Response();
    size_t position = positions.calls[methodKey]++;
    if (position >= it->second.size())
        position = it->second.size() - 1;
    return it->second[position];
}

} // namespace sim
