#pragma once

#include <utility>

#include <QObject>

#include "main/running_program.h"

namespace corvane {

/// Turns folders that the system passes to the running program (dropped on its icon, or opened with it) into start
/// requests. Installed as an event filter of the application; main thread only.
class FolderOpener final : public QObject {
    Q_OBJECT

public:
    explicit FolderOpener(RunningProgram::Answer answer, QObject *parent = nullptr)
        : QObject(parent), m_answer(std::move(answer))
    {
    }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const RunningProgram::Answer m_answer;
};

} // namespace corvane
