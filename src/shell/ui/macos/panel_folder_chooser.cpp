#include "shell/ui/system_folder_chooser.h"

namespace corvane {

// Qt's dialog is the system's panel.
std::unique_ptr<SystemFolderChooser> systemFolderChooser()
{
    return nullptr;
}

} // namespace corvane
