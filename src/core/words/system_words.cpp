#include "core/words/system_words.h"

namespace corvane {

const SystemWords &wordsOf(SystemKind kind)
{
    static constexpr SystemWords mac{
        .invitation = "See what fills this Mac",
        .reveal = "Reveal in Finder",
        .revealFolder = "Reveal Folder in Finder",
        .diskSubtitle = "Every byte on your disk, accounted for — including what Finder calls “System Data”",
        .nudgeTitle = "Scan your home folder to explain the rest",
        .nudgeText =
            "Right now Corvane only knows the volume sizes. A scan turns “Not Scanned Yet” into folders you can "
            "explore and clean.",
        .needsAccess = "Needs Full Disk Access",
        .blockedFolder = "macOS blocked access. Granting Full Disk Access usually fixes this.",
        .blockedByOwner = {},
        .belongsTo = {},
        .deniedTo = {},
        .orphansText =
            "Library folders named after apps that are no longer on this Mac, from companies with no other "
            "installed apps, untouched for 30+ days. Nothing is pre-selected. Review, then use the bar below "
            "to move them to the Trash.",
        .uninstallAdvice = "go to the Trash, so you can restore them if needed. macOS may ask for your password for "
                           "apps installed by an installer.",
        .snapshotsTitle = "Local Time Machine Snapshots",
        .snapshotsText =
            "macOS keeps these hourly copies when Time Machine is on and deletes them by itself when space "
            "runs low, so they're usually nothing to worry about. If you need the space right now, you can "
            "thin them yourself in Terminal.",
        .snapshotsNote = "The second command asks for your Mac password. Corvane never runs it for you.",
        .listSnapshots = "tmutil listlocalsnapshots /",
        .thinSnapshots = "sudo tmutil thinlocalsnapshots / 999999999999 4",
        .welcomeLine = "See what's filling your Mac and sweep it out safely.",
        .accessTitle = "Full Disk Access",
        .accessMissing = "Lets Corvane measure Mail, Safari, the Trash and app data, without asking folder by folder.",
        .accessGranted = "All set! Corvane can see your whole home folder.",
        .accessIsInSettings = true,
        .accessSteps = {"Click **Open System Settings** below.",
                        "Click **+** and choose **Corvane**, or drag the icon on the right into the list.",
                        "Switch Corvane **on**. If macOS asks, choose **Quit & Reopen**."},
        .dragHelp = "Drag me into the Full Disk Access list",
        .settingsFailure = "Can't open the settings for Full Disk Access",
        .bannerTitle = "Give Corvane Full Disk Access for complete results",
        .bannerText =
            "Without it, macOS hides Mail, Safari, Trash and some app data — and may ask for permission folder "
            "by folder. Add Corvane in System Settings › Privacy & Security › Full Disk Access, then relaunch.",
        .automaticUpdates = "Download and install updates automatically",
        .includeSystemInfo = "Include app version, macOS version and Mac model",
        .crashReportContent = "the app and macOS version, your Mac model and the code that was running",
    };
    static constexpr SystemWords linuxSystem{
        .invitation = "See what fills this computer",
        .reveal = "Show in File Manager",
        .revealFolder = "Show in File Manager",
        .diskSubtitle = "Every byte on your disk, accounted for",
        .nudgeTitle = "Scan your home folder to explore it",
        .nudgeText = "A scan fills the Space Map and finds large and old files, duplicates and build folders.",
        .needsAccess = "Can't be read",
        .blockedFolder = "You don't have permission to read it.",
        .blockedByOwner = "It belongs to {}, and you don't have permission to read it.",
        .belongsTo = "Belongs to {}",
        .deniedTo = "; it belongs to {}",
        .orphansText =
            "Data of Flatpaks and Snaps that are no longer on this computer, and folders named after apps that are "
            "gone, from makers with no other installed apps, untouched for 30+ days. Nothing is pre-selected. "
            "Review, then use the bar below to move them to the Trash.",
        .uninstallAdvice = "go to the Trash, so you can restore them if needed.",
        .snapshotsTitle = "Snapshots",
        .snapshotsText =
            "Earlier states of the disk that the system keeps. They share their storage with today's files, "
            "and what only they still hold is freed when they are deleted.",
        .snapshotsNote = "Deleting a snapshot asks for your password. Corvane never runs a command for you.",
        .listSnapshots = {},
        .thinSnapshots = {},
        .welcomeLine = "See what's filling your computer and sweep it out safely.",
        .accessTitle = "Access to Your Files",
        .accessMissing = "Corvane can't open your home folder. Check its permissions.",
        .accessGranted = "All set! Corvane can see your whole home folder.",
        .accessIsInSettings = false,
        .accessSteps = {},
        .dragHelp = {},
        .settingsFailure = "Can't open the system's settings",
        .bannerTitle = "Let Corvane read your home folder for complete results",
        .bannerText = "Your home folder can't be opened, so nothing in it can be measured. Check its permissions, then "
                      "scan again.",
        .automaticUpdates = "Download updates automatically",
        .includeSystemInfo = "Include app and system versions and computer model",
        .crashReportContent = "the app and system version, your computer's model and the code that was running",
    };
    return kind == SystemKind::mac ? mac : linuxSystem;
}

} // namespace corvane
