#!/usr/bin/env python3
"""Prints the description of the MSI package, from which wixl makes it.

    msi-source.py NAME VERSION PUBLISHER HOME-PAGE CONTACT-PAGE UPGRADE-CODE

The files are those below the current directory's "files"; "icon.ico" beside it is the program's icon. All
paths are relative, which wixl wants.
"""
import os
import sys
import uuid
from xml.etree import ElementTree

name, version, publisher, home_page, contact_page, upgrade_code = sys.argv[1:]
codes = uuid.UUID(upgrade_code)


def code(text):
    """A GUID that depends on the text only, not on the version or the machine."""
    return "{%s}" % str(uuid.uuid5(codes, text)).upper()


def identifier(kind, path):
    """An identifier within the package, never shown to users."""
    return kind + uuid.uuid5(codes, path).hex


def element(parent, tag, **attributes):
    return ElementTree.SubElement(parent, tag, attributes)


wix = ElementTree.Element("Wix", xmlns="http://schemas.microsoft.com/wix/2006/wi")
product = element(wix, "Product", Id=code(f"{name} {version}"), Name=name, Language="1033", Version=version,
                  Manufacturer=publisher, UpgradeCode=upgrade_code)
element(product, "Package", InstallerVersion="500", Compressed="yes", InstallScope="perMachine",
        Description=f"{name} {version}", Comments=f"Installs {name} {version}", Manufacturer=publisher)
element(product, "MajorUpgrade", DowngradeErrorMessage=f"A newer version of {name} is installed. To go back, remove "
        "the newer version first.")
element(product, "Media", Id="1", Cabinet="files.cab", EmbedCab="yes")
element(product, "Icon", Id="icon.ico", SourceFile="icon.ico")
for key, value in {"ARPPRODUCTICON": "icon.ico", "ARPURLINFOABOUT": home_page, "ARPHELPLINK": contact_page,
                   "ARPNOMODIFY": "1"}.items():
    element(product, "Property", Id=key, Value=value)

# setup.exe uses the same directory and the same Start menu entries.
entry = element(product, "Property", Id="INSTALLEDBYSETUP")
element(entry, "RegistrySearch", Id="SetupEntry", Root="HKLM", Type="raw", Win64="yes", Name="UninstallString",
        Key=rf"Software\Microsoft\Windows\CurrentVersion\Uninstall\{name}")
element(product, "Condition", Message=f"{name} has been installed for this machine by its setup.exe. Upgrade it with a "
        "newer setup.exe, or remove it first, in Windows's list of apps.").text = "Installed OR NOT INSTALLEDBYSETUP"

# A newer version goes to the directory of the older one, unless INSTALLDIR says otherwise.
program_path = r"Software\Microsoft\Windows\CurrentVersion\App Paths\corvanta.exe"
previous = element(product, "Property", Id="PREVIOUSDIR")
element(previous, "RegistrySearch", Id="PreviousDir", Root="HKLM", Key=program_path, Name="Path", Type="raw",
        Win64="yes")
element(product, "CustomAction", Id="KeepDirectory", Property="INSTALLDIR", Value="[PREVIOUSDIR]", Impersonate="yes")
element(product, "CustomAction", Id="SetInstallLocation", Property="ARPINSTALLLOCATION", Value="[INSTALLDIR]",
        Impersonate="yes")
# By number, because wixl puts an action that comes after another one at the end.
for table in "InstallExecuteSequence", "InstallUISequence":
    sequence = element(product, table)
    element(sequence, "Custom", Action="KeepDirectory", Sequence="60").text = "PREVIOUSDIR AND NOT INSTALLDIR"
    if table == "InstallExecuteSequence":
        element(sequence, "Custom", Action="SetInstallLocation", Sequence="1001")

target = element(product, "Directory", Id="TARGETDIR", Name="SourceDir")
feature = element(product, "Feature", Id="Program", Level="1")
program_files = element(target, "Directory", Id="ProgramFiles64Folder")
directories = {"files": element(program_files, "Directory", Id="INSTALLDIR", Name=name)}
files = {}
for path, subdirectories, names in os.walk("files"):
    subdirectories.sort()
    directory = directories[path]
    for subdirectory in subdirectories:
        below = os.path.join(path, subdirectory)
        directories[below] = element(directory, "Directory", Id=identifier("d", below), Name=subdirectory)
    for file_name in sorted(names):
        file = os.path.join(path, file_name)
        # A file of the same name in a later version must be the same component.
        component = element(directory, "Component", Id=identifier("c", file), Guid=code(file), Win64="yes")
        files[file] = element(component, "File", Id=identifier("f", file), Source=file, KeyPath="yes").get("Id")
        element(feature, "ComponentRef", Id=component.get("Id"))

main = element(directories["files"], "Component", Id="ProgramPath", Guid=code("App Paths"), Win64="yes")
for key, value in {"": f"[#{files['files/corvanta.exe']}]", "Path": "[INSTALLDIR]"}.items():
    entry = element(main, "RegistryValue", Root="HKLM", Key=program_path, Type="string", Value=value)
    entry.attrib.update({"Name": key} if key else {"KeyPath": "yes"})
element(feature, "ComponentRef", Id="ProgramPath")

menu_folder = element(target, "Directory", Id="ProgramMenuFolder")
menu = element(menu_folder, "Directory", Id="Menu", Name=name)
shortcuts = element(menu, "Component", Id="Shortcuts", Guid=code("Start menu"), Win64="yes")
element(shortcuts, "CreateFolder")
for key, title, file in [("Program", name, "corvanta.exe"), ("Guide", f"Guide to {name}", "guide.html")]:
    element(shortcuts, "Shortcut", Id=f"{key}Shortcut", Directory="Menu", Name=title, WorkingDirectory="INSTALLDIR",
            Target=f"[#{files[os.path.join('files', file)]}]")
element(shortcuts, "RemoveFolder", Id="RemoveMenu", On="uninstall")
element(feature, "ComponentRef", Id="Shortcuts")

ElementTree.indent(wix)
ElementTree.ElementTree(wix).write(sys.stdout.buffer, "utf-8", xml_declaration=True)
