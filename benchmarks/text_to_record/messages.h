// The messages that the roads from text to record are measured with: the sample messages, compact as devices send them,
// and what is made of them. Where a sample cannot be read, std::runtime_error says so.
#ifndef BENCHMARKS_TEXT_TO_RECORD_MESSAGES_H
#define BENCHMARKS_TEXT_TO_RECORD_MESSAGES_H

#include <cstddef>
#include <string>
#include <string_view>

namespace benchmarks {

/// A message body. Behind its text are kPadding bytes that a library may read, as a receive buffer would have them.
class Message {
  public:
    static constexpr std::size_t kPadding = 64;

    explicit Message(std::string_view text, bool isEvent = false) : bytes_(text), isEvent_(isEvent) {
        bytes_.append(kPadding, '\0');
    }

    std::string_view text() const { return {bytes_.data(), bytes_.size() - kPadding}; }
    /// Whether the record is at kCarInEvent; else it is the whole message.
    bool isEvent() const { return isEvent_; }

  private:
    std::string bytes_;
    bool isEvent_;
};

inline constexpr const char* kCarInEvent = "/params/Events/0/TrafficCar";

/// Members in the order of the sample message, which is that of the converter, or shuffled.
enum class Order { Sample, Shuffled };

/// A traffic car with every member that its converter reads.
Message TrafficMessage(Order order = Order::Sample);
/// A detected object with every member that its converter reads.
Message ObjectMessage(Order order = Order::Sample);
/// A person with every member that its converter reads, and eight pictures.
Message PersonMessage(Order order = Order::Sample);
/// A schedule of eight rows of six segments.
Message ScheduleMessage();
/// The notification of a traffic event: a traffic car besides many members that nothing reads.
Message EventMessage();

// ---- the same with more and more of something

/// A traffic car behind count members that nothing reads.
Message TrafficOfUnreadMembers(std::size_t count);
/// One that has a member count times more than once.
Message TrafficOfDuplicates(std::size_t count);
/// One behind count blanks.
Message TrafficOfBlanks(std::size_t count);
/// One behind count members that nothing reads, each 64 arrays deep.
Message TrafficOfDeepMembers(std::size_t count);
/// One with an address of count escapes.
Message TrafficOfEscapes(std::size_t count);
/// An event with a text of count bytes that nothing reads.
Message EventOfUnreadText(std::size_t count);
/// A detected object with an outline of count points.
Message ObjectOfPoints(std::size_t count);
/// A person with count pictures.
Message PersonOfPictures(std::size_t count);

}  // namespace benchmarks

#endif
