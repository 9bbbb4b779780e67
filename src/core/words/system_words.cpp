#include "core/words/system_words.h"

namespace corvane {

const SystemWords &wordsOf(SystemKind kind)
{
    static constexpr SystemWords mac{
        .welcomeLine = "See what's filling your Mac and sweep it out safely.",
        .accessTitle = "Full Disk Access",
        .accessMissing = "Lets Corvane measure Mail, Safari, the Trash and app data, without asking folder by folder.",
        .accessGranted = "All set! Corvane can see your whole home folder.",
        .accessIsInSettings = true,
        .bannerTitle = "Give Corvane Full Disk Access for complete results",
        .bannerText =
            "Without it, macOS hides Mail, Safari, Trash and some app data — and may ask for permission folder "
            "by folder. Add Corvane in System Settings › Privacy & Security › Full Disk Access, then relaunch.",
        .includeSystemInfo = "Include app version, macOS version and Mac model",
        .crashReportContent = "the app and macOS version, your Mac model and the code that was running",
    };
    static constexpr SystemWords linuxSystem{
        .welcomeLine = "See what's filling your computer and sweep it out safely.",
        .accessTitle = "Access to Your Files",
        .accessMissing = "Corvane can't open your home folder. Check who may read it.",
        .accessGranted = "All set! Corvane can see your whole home folder.",
        .accessIsInSettings = false,
        .bannerTitle = "Let Corvane read your home folder for complete results",
        .bannerText = "Your home folder can't be opened, so nothing in it can be measured. Check who may read it, then "
                      "scan again.",
        .includeSystemInfo = "Include app version, system version and computer model",
        .crashReportContent = "the app and system version, your computer's model and the code that was running",
    };
    return kind == SystemKind::mac ? mac : linuxSystem;
}

} // namespace corvane
