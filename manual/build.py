"""Makes the manual, a folder of static pages that open without a server, from the header, the rows
of worked calls and the documents.

    python3 manual/build.py LIBRARY WORK OUT

LIBRARY is the JavaScript package, which draws and computes; WORK a folder for what is in between.
"""

import argparse
import json
import pathlib
import re
import shutil
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "tools")]

import jinja2  # noqa: E402
from generator import documents, languages, pages, worked  # noqa: E402
from generator.pictures import draw_all  # noqa: E402
from interface import HEADER, ROOT, read  # noqa: E402


def parse_command():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    for name in ("library", "work", "out"):
        parser.add_argument(name, type=pathlib.Path, metavar=name.upper())
    return parser.parse_args()


def version():
    return ".".join(re.findall(r"#define KEZ_VERSION_\w+ (\d+)", HEADER.read_text()))


def environment():
    found = jinja2.Environment(loader=jinja2.FileSystemLoader(HERE / "templates"), autoescape=True,
                               trim_blocks=True, lstrip_blocks=True,
                               undefined=jinja2.StrictUndefined)
    found.globals["version"] = version()
    return found


def write_pages(site, out):
    templates = environment()
    templates.globals["contents"] = site.contents()
    for page in site.pages():
        text = templates.get_template(page.template).render(
            title=page.title, href=page.href, description=page.description, **page.values)
        (out / page.href).write_text(text)


def write_index(site, out):
    (out / "assets/index.js").write_text(
        f"window.manualIndex = {json.dumps(site.index(), separators=(',', ':'))};\n")


def bundle(library, assets):
    """Classic scripts: a page that comes from a disk may load no modules."""
    command = ["esbuild", "--bundle", "--minify", "--format=iife", "--target=es2020",
               "--log-level=warning", "--loader:.wasm=binary", f"--alias:kezlib={library}",
               f"--outdir={assets}"]
    subprocess.run([*command, *(str(HERE / f"browser/{name}.js")
                                for name in ("theme", "page", "live"))], check=True)


def main():
    command = parse_command()
    shutil.rmtree(command.out, ignore_errors=True)
    assets = command.out / "assets"
    assets.mkdir(parents=True)
    interface = read()
    calls = worked.worked_calls(interface)
    drawn = draw_all(interface, calls, command.library.resolve(), command.work.resolve())
    readme = documents.Document(ROOT / "README.md")
    site = pages.Site(interface, calls, drawn, languages.tabs(), readme)
    write_pages(site, command.out)
    write_index(site, command.out)
    bundle(command.library.resolve(), assets)
    shutil.copy(HERE / "style.css", assets)
    shutil.copy(ROOT / "bench/plot.svg", assets)
    files = [file for file in command.out.rglob("*") if file.is_file()]
    print(f"{sum(file.suffix == '.html' for file in files)} pages, "
          f"{sum(file.stat().st_size for file in files) / 1e6:.1f} MB, in {command.out}")


if __name__ == "__main__":
    main()
