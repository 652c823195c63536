"""Makes the manual, a folder of static pages that open without a server, from the header, the rows
of worked calls and the documents.

    python3 manual/build.py LIBRARY WORK OUT

LIBRARY is the JavaScript package, which draws and computes; WORK a folder for what is in between.
"""

import argparse
import gzip
import json
import pathlib
import shutil
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "tools")]

import jinja2  # noqa: E402
from generator import documents, guides, languages, pages, search, sheet, worked  # noqa: E402
from generator.pictures import draw_all  # noqa: E402
from generator.routine_page import page_data  # noqa: E402
from interface import read, version  # noqa: E402


def absolute(path):
    return pathlib.Path(path).resolve()


def parse_command():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    for name in ("library", "work", "out"):
        parser.add_argument(name, type=absolute, metavar=name.upper())
    return parser.parse_args()


def environment():
    found = jinja2.Environment(loader=jinja2.FileSystemLoader(HERE / "templates"), autoescape=True,
                               trim_blocks=True, lstrip_blocks=True,
                               undefined=jinja2.StrictUndefined)
    found.globals["version"] = version()
    return found


def write_pages(site, out):
    templates = environment()
    templates.globals["contents"] = site.contents()
    for page in site.pages:
        text = templates.get_template(page.template).render(
            title=page.title, href=page.href, description=page.description, **page.values)
        (out / page.href).write_text(text)


def write_committed_pictures(drawn, folder):
    """Those that README shows, from where `./dev manual --pictures` copies them."""
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir()
    for picture in (HERE / "pictures").glob("*.svg"):
        (folder / picture.name).write_text(drawn[picture.stem].alone + "\n")


def write_index(site, out):
    (out / "assets/index.js").write_text(
        f"window.manualIndex = {json.dumps(search.index(site), separators=(',', ':'))};\n")


def bundle(library, scripts, *options):
    """The library's module becomes part of what uses it."""
    subprocess.run(["esbuild", "--bundle", "--log-level=warning", f"--alias:kezlib={library}",
                    *options, *(str(HERE / s) for s in scripts)], check=True)


def drawn_pages(command, interface, calls, tabs):
    """What node computes for the pages, by routine, and the style of its pictures."""
    bundle(command.library, ["pictures.mjs"], "--platform=node", "--format=esm",
           f"--outfile={command.work / 'pictures.mjs'}")
    questions = [{"routine": page_data(r, calls[r.name], tabs),
                  "calls": [call.inputs for call in calls[r.name]]} for r in interface.routines]
    drawn, style = draw_all(command.work / "pictures.mjs", questions, command.work)
    for name, found in drawn.items():
        for call, results in zip(calls[name], found.calls):
            call.results = results
    return drawn, style


def guide_calls(command, interface, calls):
    script = command.work / "guide_calls.mjs"
    bundle(command.library, ["guide_calls.mjs"], "--platform=node", "--format=esm",
           f"--outfile={script}")
    return guides.compute(script, documents.topics(), interface, calls, command.work)


def write_scripts(command, assets):
    """Classic scripts: a page that comes from a disk may load no modules."""
    packed = command.work / "kezlib.gz"
    packed.write_bytes(gzip.compress((command.library / "kezlib.wasm").read_bytes(), mtime=0))
    bundle(command.library, [f"browser/{name}.js" for name in ("theme", "page", "live", "finder")],
           "--minify", "--format=iife", "--target=es2020", f"--outdir={assets}",
           "--loader:.gz=binary", f"--alias:packed-library={packed}")


def main():
    command = parse_command()
    shutil.rmtree(command.out, ignore_errors=True)
    assets = command.out / "assets"
    assets.mkdir(parents=True)
    command.work.mkdir(parents=True, exist_ok=True)
    interface = read()
    calls = worked.worked_calls(interface)
    tabs = languages.tabs()
    drawn, style = drawn_pages(command, interface, calls, tabs)
    site = pages.Site(interface, calls, drawn, tabs, guide_calls(command, interface, calls))
    write_committed_pictures(drawn, command.work / "pictures")
    write_pages(site, command.out)
    write_index(site, command.out)
    write_scripts(command, assets)
    sheet.draw(assets, command.work)
    (assets / "style.css").write_text((HERE / "style.css").read_text() + style)
    files = [file for file in command.out.rglob("*") if file.is_file()]
    print(f"{sum(file.suffix == '.html' for file in files)} pages, "
          f"{sum(file.stat().st_size for file in files) / 1e6:.1f} MB, in {command.out}")


if __name__ == "__main__":
    main()
