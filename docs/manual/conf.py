"""How Sphinx makes the manual of the pages; scripts/manual calls it."""

import logging
import re
from pathlib import Path

from docutils import nodes
from pygments.lexers import find_lexer_class_by_name
from pygments.lexers.special import TextLexer
from pygments.util import ClassNotFound

root = Path(__file__).resolve().parents[2]

project = "vomar and tavelin"
version = re.search(r'version = "(.*)"', (root / "library/version.h").read_text()).group(1)
release = version

extensions = ["myst_parser", "breathe"]
exclude_patterns = ["docs/manual", "docs/templates"]
nitpicky = True
# Types of the standard library and of TinyXML have no page here, and fields may say enough by their names.
nitpick_ignore_regex = [("cpp:identifier", ".*")]

# Two minus signs begin an option, and quotes are what they are.
smartquotes = False

# Headings have the names that a git host gives them.
myst_heading_anchors = 4

breathe_projects = {"tavelin": str(root / "build/reference/xml")}
breathe_default_project = "tavelin"
breathe_show_include = False

# The index is in the order of the names in the namespaces.
cpp_index_common_prefix = ["tavelinUtils::resultCode::", "tavelinUtils::", "tavelinMath::"]

html_theme = "furo"
html_title = f"{project} {version}"
html_css_files = ["manual.css"]
html_static_path = ["static"]
html_copy_source = False
html_show_sphinx = False
html_show_copyright = False


def is_about_a_namespace(record):
    """Each header opens a namespace, which the domain takes for a second declaration of it."""
    return re.search(r"Duplicate C\+\+ .*\n.*'\.\. cpp:type:: tavelin(Utils|Math)(::resultCode)?'", record.getMessage())


def text_of_a_link(_app, _env, node, content):
    """A link to a file or a folder of the project that is no page is its text alone."""
    if node.get("reftype") != "any" or not (root / node["refdoc"]).parent.joinpath(node["reftarget"]).exists():
        return None
    return content


def without_comments(_app, document):
    """The notes to the tests of the pages are not for readers."""
    for raw in list(document.findall(nodes.raw)):
        if raw.astext().startswith("<!--"):
            raw.parent.remove(raw)


def name_samples(app):
    """The word after a fence may be a format of ours, which is shown as it is."""
    words = set()
    for page in Path(app.srcdir).rglob("*.md"):
        words.update(re.findall(r"^```(\S+)", page.read_text(), re.MULTILINE))
    for word in words:
        try:
            find_lexer_class_by_name(word)
        except ClassNotFound:
            app.add_lexer(word, TextLexer)


def sort_pages(_app, env):
    """Pages that are read at once come in any order, which the index for the search would show."""
    env.all_docs = dict(sorted(env.all_docs.items()))
    return []


def setup(app):
    logging.getLogger("sphinx.sphinx.domains.cpp").addFilter(lambda record: not is_about_a_namespace(record))
    app.connect("builder-inited", name_samples)
    app.connect("env-updated", sort_pages)
    app.connect("missing-reference", text_of_a_link)
    app.connect("doctree-read", without_comments)
