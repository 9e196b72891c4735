// One call of a service method: what the client sent goes to the call log,
// the scenario's next response for the method is played (events, delay) and
// its data become the method's out-records.
#pragma once

#include "simulator/Records.h"
#include "simulator/ServiceObject.h"

#include <new>

namespace sim {

class Call {
public:
    Call(CServiceObject &object, const char *methodKey, const IID &iid);

    // What the client sent, for the log: filled by the method.
    Json &Request() { return request_; }

    // For methods without out data.
    HRESULT Finish();

    // `fill(Reader &)` builds the out-records from the response data;
    // `reset()` zeroes the out-parameters again should that fail.
    template <typename Fill, typename Reset> HRESULT Finish(Fill fill, Reset reset) {
        Play();
        try {
            Allocator memory;
            ArrayShapes shapes;
            Reader data(response_.data, Where(), memory, &shapes);
            data.TakeShapes();
            fill(data);
            data.Done();
            data.CheckShapes();
            memory.Commit();
        } catch (const ScenarioError &error) {
            reset();
            return Fail(error.what());
        } catch (const std::bad_alloc &) {
            reset();
            return Fail("out of memory while building the response");
        }
        return Complete();
    }

private:
    void Play();
    HRESULT Fail(const std::string &problem);
    HRESULT Complete();
    std::string Where() const;
    void AddAuthentication(Json &line) const;

    CServiceObject &object_;
    std::string key_;
    const IID &iid_;
    Json request_ = Json::object();
    Response response_;
    // The authentication level the call arrived with, where the runtime
    // tells it (CoQueryClientBlanket); otherwise why not.
    DWORD authnLevel_ = 0;
    HRESULT authnQuery_ = E_FAIL;
    unsigned sinksCalled_ = 0;
    unsigned sinkFailures_ = 0;
};

// A method that the service has but the client never calls.
HRESULT NotImplemented(CServiceObject &object, const char *methodKey);

// The scenario check of a method whose data fill out-records of the given
// types: `fill(Reader &, Outs &...)` is run on throw-away records.
template <typename... Outs> DataCheck CheckOf(void (*fill)(Reader &, Outs &...)) {
    return [fill](const Json &data, const std::string &path) {
        Allocator memory;
        ArrayShapes shapes;
        Reader reader(data, path, memory, &shapes);
        reader.TakeShapes();
        std::tuple<Outs...> outs{};
        std::apply([&](Outs &...out) { fill(reader, out...); }, outs);
        reader.Done();
        reader.CheckShapes();
    };
}

// The check of a method that has no out data: only the control keys.
void NoData(Reader &);

} // namespace sim
