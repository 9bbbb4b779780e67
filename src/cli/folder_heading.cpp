#include "cli/folder_heading.h"

#include <fmt/format.h>

#include "cli/scan_report.h"
#include "cli/terminal_text.h"
#include "core/scan_words.h"
#include "core/words/display_text.h"
#include "core/words/figures.h"
#include "core/words/shared_texts.h"

namespace corvane {

void writeFolderHeading(const FolderScan &scan, std::string_view home, Console &console)
{
    const FileNode &folder = *scan.root;
    console.out.write(console.strong(formatPath(folder.path(), home)) + "\n");
    const std::string figures = fmt::format("{} in {}, scanned in {:.1f} seconds", formatByteCount(folder.size),
                                            formatCount(folder.fileCount, "file", "files"), scan.seconds);
    console.out.write(wrapped(figures, console.outColumns(), 0) + "\n");
    if (scan.denied > 0)
        console.out.write(deniedText(scan.denied) + "\n");
    writeNotes({&scan, 1}, console);
    if (scan.isCancelled)
        console.out.write(console.strong(stoppedScanText) + "\n");
    console.out.write('\n');
}

void writeNotes(std::span<const FolderScan> scans, Console &console)
{
    for (const std::string &note : filterNotes(scans))
        console.writeHint(note);
}

void writeNoItems(const FileNode &folder, Console &console)
{
    console.out.write(fmt::format("{}\n", folder.unreadable ? unreadableFolderTitle : emptyFolderTitle));
}

} // namespace corvane
