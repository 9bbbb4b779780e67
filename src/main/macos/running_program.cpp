// The system starts an application once, and brings it to the front where it runs.
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
