"""The files that the applications of a Linux system consist of, as lines of a description.

One line there stands for a whole application:

    flatpak: ID | Name | VERSION | SIZE | SIGN COLOUR
    snap: NAME | Name | VERSION | SIZE | SIGN COLOUR
    package: NAME | Name | VERSION | SIZE | SIGN COLOUR | ID
    appimage: FILE | Name | VERSION | SIZE | SIGN COLOUR | ID

ID is the name of the desktop file.
"""

HOME = "home/studio"


def entry(name, command, icon, *more):
    """A desktop file as the text of a description line."""
    lines = ["[Desktop Entry]", "Type=Application", f"Name={name}", f"Exec={command} %U", f"Icon={icon}", *more]
    return "text | " + r"\n".join(lines) + r"\n"


def share(size, part):
    """A fraction of a size such as "1.2 GB"."""
    number, unit = size.split()
    return f"{float(number) * part:.5f} {unit}"


def flatpak(app_id, name, version, size, icon):
    place = f"var/lib/flatpak/app/{app_id}"
    program = name.lower().replace(" & ", "-").replace(" ", "-")
    exports = "var/lib/flatpak/exports/share"
    return [
        f"{place}/current -> x86_64/stable",
        f"{place}/x86_64/stable/active -> deployed",
        f"{place}/x86_64/stable/deployed/files/bin/{program} | {share(size, .2)}",
        f"{place}/x86_64/stable/deployed/files/lib/lib{program}-{{1..6}}.so | {share(size, .8)} in all",
        f"{place}/x86_64/stable/deployed/files/share/metainfo/{app_id}.metainfo.xml | text | "
        rf'<component type="desktop-application"><id>{app_id}</id><releases><release version="{version}"/>'
        r"</releases></component>\n",
        f"{exports}/applications/{app_id}.desktop | " + entry(
            name, f"/usr/bin/flatpak run --branch=stable --command={program} {app_id}", app_id, f"X-Flatpak={app_id}"),
        f"{exports}/icons/hicolor/128x128/apps/{app_id}.png | icon {icon}",
    ]


def snap(snap_name, name, version, size, icon):
    place = f"snap/{snap_name}/214"
    return [
        f"var/lib/snapd/snaps/{snap_name}_214.snap | {size}",
        f"var/lib/snapd/desktop/applications/{snap_name}_{snap_name}.desktop | " + entry(
            name, f"/snap/bin/{snap_name}", f"/snap/{snap_name}/214/meta/gui/icon.png",
            f"X-SnapInstanceName={snap_name}"),
        f"snap/{snap_name}/current -> 214",
        rf"{place}/meta/snap.yaml | text | name: {snap_name}\nversion: '{version}'\n",
        f"{place}/meta/gui/icon.png | icon {icon}",
    ]


def package(package_name, name, version, size, icon, app_id):
    program = f"usr/lib/{package_name}/{package_name}"
    data = f"usr/share/{package_name}"
    files = [program, *(f"{data}/part-{number}.pak" for number in range(1, 5)),
             f"usr/share/applications/{app_id}.desktop"]
    return [
        f"{program} | {share(size, .3)}",
        f"usr/bin/{package_name} -> ../lib/{package_name}/{package_name}",
        f"{data}/part-{{1..4}}.pak | {share(size, .7)} in all",
        f"usr/share/applications/{app_id}.desktop | " + entry(
            name, f"/usr/bin/{package_name}", app_id, f"StartupWMClass={package_name}"),
        f"usr/share/icons/hicolor/128x128/apps/{app_id}.png | icon {icon}",
        f"var/lib/dpkg/info/{package_name}.list | text | /.\\n" + "".join(rf"/{file}\n" for file in files),
        rf"var/lib/dpkg/status | more text | Package: {package_name}\nStatus: install ok installed\n"
        rf"Architecture: amd64\nVersion: {version}-1\n\n",
    ]


def appimage(file, name, version, size, icon, app_id):
    del version  # AppImages have no version in their desktop file
    return [
        f"{HOME}/Applications/{file}.AppImage | {size}",
        f"{HOME}/.local/share/applications/{app_id}.desktop | " + entry(
            name, f"/{HOME}/Applications/{file}.AppImage", app_id),
        f"{HOME}/.local/share/icons/hicolor/128x128/apps/{app_id}.png | icon {icon}",
    ]


KINDS = {"flatpak": flatpak, "snap": snap, "package": package, "appimage": appimage}


def lines(text):
    """The description lines of such an application line; none for any other line."""
    kind, colon, rest = text.partition(": ")
    return KINDS[kind](*rest.split(" | ")) if colon and kind in KINDS else []
