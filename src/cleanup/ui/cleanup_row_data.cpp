#include "cleanup/ui/cleanup_row_data.h"

#include <array>

#include <QStringList>

#include "cleanup/cleanup_items.h"
#include "cleanup/ui/cleanup_list_model.h"
#include "core/store/qt_words.h"
#include "core/words/shared_texts.h"
#include "shell/ui/cleanup_words.h"
#include "shell/ui/elide_mode.h"
#include "shell/ui/file_icons.h"

namespace corvane {

namespace {

using Kind = CleanupRow::Kind;
using enum CleanupListModel::Role;

struct SectionWords {
    QString title;
    QString symbol;
};

const std::array<SectionWords, 5> sections{{
    {QStringLiteral("System Junk"), QStringLiteral("gearshape.2")},
    {QStringLiteral("Developer Junk"), QStringLiteral("hammer")},
    {QStringLiteral("Personal Files to Review"), QStringLiteral("person.crop.square")},
    {QStringLiteral("Project Build Artifacts"), QStringLiteral("folder.badge.gearshape")},
    {displayText(adminCommandsTitle), QStringLiteral("lock")},
}};

QString kindName(Kind kind)
{
    switch (kind) {
    case Kind::header:
        return QStringLiteral("header");
    case Kind::card:
        return QStringLiteral("card");
    case Kind::entry:
        return QStringLiteral("entry");
    case Kind::more:
        return QStringLiteral("more");
    case Kind::missing:
        return QStringLiteral("missing");
    case Kind::reveal:
        return QStringLiteral("reveal");
    case Kind::prompt:
        return QStringLiteral("prompt");
    case Kind::partial:
        return QStringLiteral("partial");
    case Kind::none:
        return QStringLiteral("none");
    case Kind::artifact:
        return QStringLiteral("artifact");
    case Kind::folded:
        return QStringLiteral("folded");
    case Kind::command:
        return QStringLiteral("command");
    }
    return {};
}

QString moreText(std::size_t count)
{
    return QStringLiteral("+ ") + countText(static_cast<std::int64_t>(count), "smaller item", "smaller items");
}

/// The folder's name with its project: "harbor-app/node_modules".
QString artifactName(const FileNode &node)
{
    return displayText(lastPathComponent(node.folderPath())) + u'/' + displayText(node.name);
}

QVariant sectionData(const CleanupRow &row, int role)
{
    const SectionWords &words = sections[static_cast<std::size_t>(row.section)];
    switch (role) {
    case TitleRole:
        return words.title;
    case SymbolRole:
        return words.symbol;
    case NoteRole:
        if (row.section == CleanupRows::commandSection)
            return displayText(adminCommandsNote);
        return row.section == CleanupRows::artifactSection && row.isMeasured
                   ? QStringLiteral("Your build tools regenerate these on the next build or install.")
                   : QString();
    case SizeTextRole:
        return row.isMeasured ? sizeText(row.size) : QString();
    case DescriptionRole:
        return row.isMeasured ? words.title + QStringLiteral(", ") + sizeText(row.size) : words.title;
    default:
        return {};
    }
}

/// `measured` is null before the measurement.
QVariant cardData(const CleanupRow &row, const CleanupItem *measured, int role, const SystemWords &words)
{
    switch (role) {
    case TitleRole:
        return displayText(row.def->title);
    case NoteRole:
        return displayText(row.def->detail);
    case SymbolRole:
        return displayText(row.def->symbol);
    case TintRole:
        return static_cast<int>(row.def->tint);
    case RiskRole:
        return displayText(rawValue(row.def->risk));
    case SizeTextRole:
        return measured != nullptr ? totalText(*measured) : QStringLiteral("–");
    case CountTextRole:
        return measured != nullptr ? countText(*measured, words) : QString();
    case UnreadableRole:
        return measured != nullptr && !measured->accessible;
    case DescriptionRole: {
        QStringList parts{displayText(row.def->title),
                          row.def->risk == CleanupRisk::safe ? QStringLiteral("Safe") : QStringLiteral("Review")};
        if (measured != nullptr && measured->accessible)
            parts << totalText(*measured);
        if (measured != nullptr)
            parts << countText(*measured, words);
        return parts.join(QStringLiteral(", "));
    }
    default:
        return {};
    }
}

QVariant entryData(const CleanupRow &row, int role)
{
    const std::string_view name =
        row.entry.name.empty() ? lastPathComponent(row.entry.path) : std::string_view(row.entry.name);
    switch (role) {
    case TitleRole:
        return displayText(name);
    case SizeTextRole:
        return sizeText(row.size);
    case IconKeyRole:
        return fileIconKey(row.entry.path, row.entry.kind);
    case ElideRole:
        return elideModeOf(name, row.entry.kind);
    case DescriptionRole:
        return displayText(name) + QStringLiteral(", ") + sizeText(row.size);
    default:
        return {};
    }
}

QVariant artifactData(const CleanupRow &row, int role, std::string_view home)
{
    const FileNode &node = *row.artifact.node;
    const auto project = [&] { return displayText(node.parentPath(home)); };
    switch (role) {
    case TitleRole:
        return artifactName(node);
    case NoteRole:
        return project();
    case TagRole:
        return displayText(row.artifact.kind);
    case SizeTextRole:
        return sizeText(row.size);
    case IconKeyRole:
        return fileIconKey(node);
    case DescriptionRole:
        return QStringList{artifactName(node), displayText(row.artifact.kind), project(), sizeText(row.size)}.join(
            QStringLiteral(", "));
    default:
        return {};
    }
}

QVariant commandData(const CleanupRow &row, int role)
{
    const AdminCommand &command = row.command;
    const QString freed = command.bytes ? QStringLiteral("can be freed") : QString();
    switch (role) {
    case TitleRole:
        return displayText(command.title);
    case NoteRole:
        return displayText(command.detail);
    case SymbolRole:
        return displayText(command.symbol);
    case TintRole:
        return static_cast<int>(command.tint);
    case ActionRole:
        return displayText(command.command);
    case SizeTextRole:
        return command.bytes ? sizeText(*command.bytes) : QString();
    case CountTextRole:
        return freed;
    case DescriptionRole: {
        QStringList parts{displayText(command.title), displayText(command.command)};
        if (command.bytes)
            parts << sizeText(*command.bytes) + u' ' + freed;
        return parts.join(QStringLiteral(", "));
    }
    default:
        return {};
    }
}

QVariant wordsData(const CleanupRow &row, int role, const SystemWords &words)
{
    const bool isTitle = role == TitleRole || role == DescriptionRole;
    switch (row.kind) {
    case Kind::more:
        return isTitle ? moreText(row.count) : QVariant();
    case Kind::folded:
        return isTitle ? displayText(foldedText(row.count, row.shownCount)) : QVariant();
    case Kind::missing:
        return isTitle ? QStringLiteral("This folder does not exist.") : QVariant();
    case Kind::reveal:
        return isTitle ? displayText(words.revealFolder) : QVariant();
    case Kind::none:
        return isTitle ? QStringLiteral("No node_modules, Gradle build outputs, Rust targets or virtualenvs found in "
                                        "this scan.")
                       : QVariant();
    default:
        break;
    }
    if (row.kind == Kind::partial) {
        if (role == ActionRole)
            return QStringLiteral("Scan Again");
        if (isTitle)
            return displayText(partialScanText);
        return role == NoteRole ? QStringLiteral("Build folders that the scan had not reached are not listed.")
                                : QVariant();
    }
    if (role == ActionRole)
        return QStringLiteral("Scan Home Folder");
    if (isTitle)
        return QStringLiteral("Find node_modules, Gradle build folders & more");
    return role == NoteRole
               ? QStringLiteral("Run a scan and Corvane will spot regenerable folders inside your projects.")
               : QVariant();
}

} // namespace

QVariant cleanupRowData(const CleanupRow &row, int role, const CleanupItem *measured, std::string_view home,
                        const SystemWords &words)
{
    switch (role) {
    case KindRole:
        return kindName(row.kind);
    case Qt::DisplayRole:
        role = TitleRole;
        break;
    case Qt::AccessibleTextRole:
        role = DescriptionRole;
        break;
    default:
        break;
    }
    switch (row.kind) {
    case Kind::header:
        return sectionData(row, role);
    case Kind::card:
        return cardData(row, measured, role, words);
    case Kind::entry:
        return entryData(row, role);
    case Kind::artifact:
        return artifactData(row, role, home);
    case Kind::command:
        return commandData(row, role);
    case Kind::folded:
    case Kind::more:
    case Kind::missing:
    case Kind::reveal:
    case Kind::prompt:
    case Kind::partial:
    case Kind::none:
        return wordsData(row, role, words);
    }
    return {};
}

} // namespace corvane
