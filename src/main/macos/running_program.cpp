// macOS starts an application only once, and brings a running one to the front.
#include "main/running_program.h"

namespace corvane {

class RunningProgram::Listener {};

bool RunningProgram::handOver(const StartRequest & /*request*/)
{
    return false;
}

RunningProgram::RunningProgram(Answer /*answer*/) {}

RunningProgram::~RunningProgram() = default;

} // namespace corvane
