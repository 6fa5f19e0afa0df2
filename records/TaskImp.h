#pragma once

namespace ttservice {

// A task that the order service made from an instruction's lines.
class TaskImp
{
public:
    int m_taskId = 0;
};

} // namespace ttservice
