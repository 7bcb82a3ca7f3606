"""The pages as HTML."""

import re
import shutil
import subprocess

LINK = re.compile(r'<a class="Xr" href="([^"]*)"[^>]*>(.*?)</a>', re.S)


def write(pages, mandoc, output, man):
    """Below OUTPUT/html, a file for each page below OUTPUT, and an index by chapters."""
    folder = output / "html"
    sources = sorted([*output.glob("man[37]/*"), *man.glob("*.1")])
    names = {f"{source.name}.html" for source in sources}
    page = pages.templates.get_template("page.html.j2")
    chapter_of = {f"{function['name']}.3": function["chapter"] for function in pages.functions.values()}
    for source in sources:
        command = [mandoc, "-T", "html", "-O", "fragment,man=%N.%S.html", str(source)]
        body = subprocess.run(command, check=True, capture_output=True, encoding="utf-8").stdout
        (folder / f"{source.name}.html").write_text(
            page.render(name=source.stem, chapter=chapter_of.get(source.name), body=own_links_only(body, names)),
            encoding="utf-8",
        )
    index = pages.templates.get_template("index.html.j2")
    (folder / "index.html").write_text(index.render(functions=list(pages.functions.values())), encoding="utf-8")
    shutil.copyfile(man / "lumozeph.css", folder / "lumozeph.css")


def own_links_only(body, names):
    """References to pages of others are text."""
    return LINK.sub(lambda link: link[0] if link[1] in names else f'<span class="Xr">{link[2]}</span>', body)
