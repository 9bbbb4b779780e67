#include <QtCore/qglobal.h>

#include "core/file_node.h"
