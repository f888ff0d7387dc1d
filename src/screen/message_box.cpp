#include "screen/message_box.h"

namespace torvale {

void Tell(Program& program, const SpokenMessage& message) {
  program.host.Message(message.text(), message.title());
}

bool Ask(Program& program, const SpokenQuestion& question) {
  return program.host.Question(question.text(), question.title());
}

}  // namespace torvale
