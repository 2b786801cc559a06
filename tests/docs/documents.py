"""What the checks of the documents share: their texts and tables, the program, and the list of faults.

Scripts that use it are called with SOURCE_FOLDER PROGRAM WORK_FOLDER.
"""
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys

source, program, work = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
shutil.rmtree(work, ignore_errors=True)
work.mkdir(parents=True)

documents = {path.name: path.read_text() for path in [source / "README.md", *sorted((source / "docs").glob("*.md"))]}
# Facts that the program does not tell are looked for in all of its source, wherever they stand.
sources = "\n".join(path.read_text() for path in sorted((source / "src").rglob("*"))
                    if path.suffix in (".h", ".cpp", ".inc"))
faults = []


def expect(holds, fault):
    if not holds:
        faults.append(fault)


def finish():
    print("\n".join(faults))
    sys.exit(1 if faults else 0)


def plain(cell):
    return cell.strip().replace("`", "").replace("**", "")


def tables(document, *columns, under=""):
    """The rows of all tables with these columns, as dictionaries, below headings that hold `under`. At least one."""
    rows, header, heading = [], None, ""
    for line in documents[document].splitlines():
        if line.startswith("#"):
            heading = line
        if not line.lstrip().startswith("|"):
            header = None
            continue
        cells = [cell.strip().replace("\\|", "|")
                 for cell in re.split(r"(?<!\\)\|", line.strip().removeprefix("|").removesuffix("|"))]
        if header is None:
            header = [plain(cell) for cell in cells]
        elif set(columns) <= set(header) and under in heading and not set(line) <= set("|- "):
            rows.append(dict(zip(header, cells, strict=True)))
    assert rows, f"{document} has no table with the columns {columns} below '{under}'"
    return rows


def tovarek(*arguments, cwd=work):
    """What the program writes to its standard output, with a fixed date in the files. Wrong use ends the check."""
    environment = os.environ | {"SOURCE_DATE_EPOCH": "1795254067"}
    run = subprocess.run([program, *arguments], capture_output=True, text=True, cwd=cwd, env=environment)
    assert run.returncode in (0, 1), f"{arguments}: {run.stdout}{run.stderr}"
    return run.stdout


def generate(**properties):
    """The number of the error, 0 for none, and the lines of the XIF file from the program ID on."""
    file = work / "out.xif"
    file.unlink(missing_ok=True)
    options = [text for name, value in properties.items() for text in ("--" + name, value)]
    result = json.loads(tovarek("generate", "--format", "json", *options, "--outputXIFfile", file.name))
    lines = file.read_text("cp1252").splitlines()[4:] if file.exists() and "error" not in result else []
    return result.get("error", 0) & 0xFFFF, lines


def write(name, text):
    (work / name).write_text(text)
    return name


def ini(sections):
    return "".join(f"[{section}]\n" + "".join(f"{key}={value}\n" for key, value in keys.items())
                   for section, keys in sections.items())


def xml(name, content):
    if isinstance(content, dict):
        content = "".join(xml(child, inner) for child, inner in content.items())
    return f"<{name}>{content}</{name}>"
