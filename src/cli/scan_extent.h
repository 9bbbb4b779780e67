#pragma once

namespace corvane {

/// Whether the scan that a result rests on came to its end, or was stopped.
enum class ScanExtent { whole, partial };

} // namespace corvane
