"""What becomes of sections, in this process or in another: texts that only wait to be written."""

from dataclasses import dataclass
from typing import Optional

from kezsection import dxf, html, report, svg, table
from kezsection.sheet import Sheet


@dataclass(frozen=True)
class Wanted:
    """Which products, and the input's path as the report names it."""
    path: str = ""
    report: bool = False
    csv: bool = False
    plates: bool = False
    excel: bool = False
    html: bool = False
    svg: bool = False
    dxf: bool = False


@dataclass
class Product:
    number: int
    line: int
    fault: str = ""
    report: str = ""
    csv: str = ""
    plates: str = ""
    html: str = ""
    svg: str = ""
    block: Optional[dxf.Block] = None


def product(section, options, wanted):
    """What is wanted of a section. One that fails does not end the run."""
    try:
        return of_sheet(Sheet(section, options), section, options, wanted)
    except (ArithmeticError, ValueError) as fault:
        reason = f"cannot be computed ({fault}); the dimensions are out of all proportion"
    except Exception as fault:
        reason = f"cannot be computed ({type(fault).__name__}: {fault}); please report this line"
    return Product(section.number, section.line, reason)


def of_sheet(sheet, section, options, wanted):
    made = Product(section.number, section.line)
    if sheet.faults:
        made.fault = f"incomplete: {'; '.join(sheet.faults)}"
    if wanted.report:
        made.report = report.report(sheet, wanted.path)
    if wanted.csv:
        made.csv = table.text_of([table.section_row(sheet)], wanted.excel)
    if wanted.plates:
        made.plates = table.text_of(table.plate_rows(sheet), wanted.excel)
    if wanted.html:
        made.html = html.page(sheet, options, wanted.path)
    if wanted.svg:
        made.svg = svg.picture(sheet)
    if wanted.dxf:
        made.block = dxf.block(sheet)
    return made


def products(sections, options, wanted):
    return [product(section, options, wanted) for section in sections]
