#include "trace_collector.h"

#include <algorithm>
#include <utility>

#include "utf8.h"

namespace tool {
namespace {

thread_local TraceCollector* theCollector = nullptr;

}  // namespace

void TraceCollector::collect(const jsonparser::TraceMessage& trace, void* /*context*/) {
    if (theCollector == nullptr) return;
    std::vector<std::string>& messages = theCollector->messages_;
    std::string message = Harmless(trace.message);
    if (std::find(messages.begin(), messages.end(), message) == messages.end()) messages.push_back(std::move(message));
}

TraceCollector::TraceCollector() : outer_(theCollector) {
    // Before any thread converts: each makes a collector first.
    [[maybe_unused]] static const bool kIsSet = (jsonparser::SetTraceSink(collect, nullptr), true);
    theCollector = this;
}

TraceCollector::~TraceCollector() { theCollector = outer_; }

void TraceCollector::addRemarks(std::vector<Finding>& findings) const {
    for (const std::string& message : messages_) {
        findings.push_back({Finding::kNowhere, "", "remark: " + message, true});
    }
}

}  // namespace tool
