#!/usr/bin/env python3
"""Builds the cvcli MSI with wixl from package/cvcli.wxs.

    build_msi.py --version X.Y.Z --bin-dir BUILD --source-dir SOURCE --output FILE.msi

The installer registers the proxy/stub library and the simulator through its
own Registry table rather than by running their registration code: Windows
Installer then removes exactly these values on uninstall (and the keys they
leave empty) and rolls them back on failure. The entries are those that
CorvanePS.dll's DllRegisterServer and corvane-sim.exe /regserver write,
derived from the same sources so that they cannot drift from the contract:

- the interfaces and their method counts, from the generated proxy code (the
  first interface of its stub list gives the proxy's class id, as widl's
  DllRegisterServer takes it);
- the interface ids and the service classes, from the contract's IDL.

wixl has no Environment element (nor an Environment table): the PATH entry is
added to the built database with msibuild, with the two standard actions that
write and remove it. The entry is put in front of PATH: Wine's installer
leaves a stray separator behind when it removes an entry from the end, and
the folder holds only cvcli's own files, so it shadows nothing.
"""
import argparse
import os
import re
import subprocess
import tempfile
from pathlib import Path

UUID = r"uuid\(\s*([0-9a-fA-F-]{36})\s*\)"


def interface_ids(idl):
    return {name: uuid.upper() for uuid, name in re.findall(UUID + r"[^\]]*\]\s*interface\s+(\w+)", idl)}


def service_classes(idl):
    return [(name, uuid.upper()) for uuid, name in re.findall(UUID + r"[^\]]*\]\s*coclass\s+(\w+)", idl)]


def proxied_interfaces(proxy_code):
    """(name, method count) of every interface in the proxy code, in the order of its stub list."""
    counts = dict((name, int(n)) for n, name in re.findall(r"CINTERFACE_PROXY_VTABLE\((\d+)\)\s+_(\w+)ProxyVtbl", proxy_code))
    stub_list = re.search(r"_StubVtblList\[\]\s*=\s*\{(.*?)\};", proxy_code, re.S)
    if not stub_list:
        raise SystemExit("msi_registry: no stub list in the proxy code")
    order = re.findall(r"&_(\w+)StubVtbl", stub_list.group(1))
    missing = [name for name in order if name not in counts]
    if missing:
        raise SystemExit("msi_registry: no proxy vtable for " + ", ".join(missing))
    return [(name, counts[name]) for name in order]


def key_element(key, values):
    """A key with its values [(name or None, text)]; see cmake/Msi.cmake for their removal."""
    lines = [f'<RegistryKey Root="HKCR" Key="{key}">']
    for name, text in values:
        name_attribute = f' Name="{name}"' if name else ""
        lines.append(f'    <RegistryValue{name_attribute} Type="string" Value="{text}" />')
    return lines + ["</RegistryKey>"]


def proxy_stub_entries(interfaces, ids):
    proxy_class = "{" + ids[interfaces[0][0]] + "}"
    lines = key_element(f"CLSID\\{proxy_class}", [(None, "PSFactoryBuffer")])
    lines += key_element(
        f"CLSID\\{proxy_class}\\InProcServer32", [(None, "[#CorvanePS.dll]"), ("ThreadingModel", "Both")]
    )
    for name, methods in interfaces:
        if name not in ids:
            raise SystemExit(f"msi_registry: {name} has no uuid in the IDL")
        key = "Interface\\{" + ids[name] + "}"
        lines += key_element(key, [(None, name)])
        lines += key_element(key + "\\NumMethods", [(None, str(methods))])
        lines += key_element(key + "\\ProxyStubClsid32", [(None, proxy_class)])
    return lines


def simulator_entries(classes):
    lines = []
    for name, uuid in classes:
        key = "CLSID\\{" + uuid + "}"
        lines += key_element(key, [(None, "Corvane " + name)])
        lines += key_element(key + "\\LocalServer32", [(None, "&quot;[#corvane_sim.exe]&quot;")])
    return lines


def write_include(path, lines):
    body = "\n".join("  " + line for line in lines)
    path.write_text(f"<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<Include>\n{body}\n</Include>\n", encoding="utf-8")


PATH_ENTRY = [
    ("Environment", "Name", "Value", "Component_"),
    ("s72", "l255", "L255", "s72"),
    ("Environment", "Environment"),
    # = set on install, - remove on uninstall, * system variable; [~] is the value already there.
    ("PathEntry", "=-*PATH", "[INSTALLDIR];[~]", "Cli"),
]
ENVIRONMENT_ACTIONS = [("RemoveEnvironmentStrings", 3300), ("WriteEnvironmentStrings", 5200)]


def run(command, cwd=None):
    result = subprocess.run(command, cwd=cwd, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if result.returncode != 0:
        raise SystemExit(f"build_msi: {command[0]} failed ({result.returncode}):\n{result.stdout}")


def main():
    parser = argparse.ArgumentParser(description="Builds the cvcli MSI with wixl.")
    parser.add_argument("--version", required=True)
    parser.add_argument("--bin-dir", required=True, type=Path, help="the build directory with the programs and contract/")
    parser.add_argument("--source-dir", required=True, type=Path)
    parser.add_argument("--output", required=True, type=Path)
    args = parser.parse_args()
    bin_dir, source_dir, output = args.bin_dir.resolve(), args.source_dir.resolve(), args.output.resolve()
    with tempfile.TemporaryDirectory(prefix="cvcli-msi-") as work:
        build(args.version, bin_dir, source_dir, output, Path(work))


def build(version, bin_dir, source_dir, output, work):
    idl = (source_dir / "idl" / "Corvane.idl").read_text(encoding="utf-8")
    proxy_code = (bin_dir / "contract" / "Corvane_p.c").read_text(encoding="utf-8")
    ids = interface_ids(idl)
    classes = service_classes(idl)
    if not classes:
        raise SystemExit("build_msi: no service class in the IDL")
    write_include(work / "ProxyStub.wxi", proxy_stub_entries(proxied_interfaces(proxy_code), ids))
    write_include(work / "SimulatorClasses.wxi", simulator_entries(classes))

    # wixl finds the files of Source attributes only by paths relative to where it runs.
    output.unlink(missing_ok=True)
    run(["wixl", "-a", "x64", "-D", f"Version={version}", "-D", f"BinDir={os.path.relpath(bin_dir, work)}",
         "-D", f"SourceDir={os.path.relpath(source_dir, work)}", "-I", ".", "-o", str(output),
         str(source_dir / "package" / "cvcli.wxs")], cwd=work)
    (work / "Environment.idt").write_text("".join("\t".join(row) + "\r\n" for row in PATH_ENTRY), encoding="ascii")
    run(["msibuild", str(output), "-i", str(work / "Environment.idt")])
    for action, sequence in ENVIRONMENT_ACTIONS:
        run(["msibuild", str(output), "-q",
             f"INSERT INTO `InstallExecuteSequence` (`Action`, `Sequence`) VALUES ('{action}', {sequence})"])


if __name__ == "__main__":
    main()
