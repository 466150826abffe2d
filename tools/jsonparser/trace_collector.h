// What converters tell the trace: no message of the tool's own, and nothing for the terminal as it is.
#ifndef TOOLS_JSONPARSER_TRACE_COLLECTOR_H
#define TOOLS_JSONPARSER_TRACE_COLLECTOR_H

#include <string>
#include <vector>

#include "finding.h"
#include "vkprotocolstack/support/support.h"

namespace tool {

/// While one lives, it takes the trace messages of its thread. Those of a thread that has none are dropped.
class TraceCollector {
  public:
    TraceCollector();
    ~TraceCollector();
    TraceCollector(const TraceCollector&) = delete;
    TraceCollector& operator=(const TraceCollector&) = delete;

    bool isEmpty() const { return messages_.empty(); }

    /// Adds the messages, each once, in their order, as remarks on the document as a whole.
    void addRemarks(std::vector<Finding>& findings) const;

  private:
    static void collect(const jsonparser::TraceMessage& trace, void* context);

    TraceCollector* const outer_;
    std::vector<std::string> messages_;
};

}  // namespace tool

#endif
