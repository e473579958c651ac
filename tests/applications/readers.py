"""What stands in a saved document, as runs of text that look alike: OpenDocument's flat XML and
AbiWord's. A run is a dictionary: its `text`, whether it is `bold`, in a `heading`, a `list` or a
table's `cell`, its `link`, its `colour` as #rrggbb and all its `looks` by the reader's names."""

import xml.etree.ElementTree as xml

NAMES = {
    "office": "urn:oasis:names:tc:opendocument:xmlns:office:1.0",
    "style": "urn:oasis:names:tc:opendocument:xmlns:style:1.0",
    "fo": "urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0",
    "table": "urn:oasis:names:tc:opendocument:xmlns:table:1.0",
    "text": "urn:oasis:names:tc:opendocument:xmlns:text:1.0",
    "xlink": "http://www.w3.org/1999/xlink",
    "abw": "http://www.abisource.com/awml.dtd",
}


def name(prefixed):
    prefix, _, local = prefixed.partition(":")
    return f"{{{NAMES[prefix]}}}{local}"


def texts(element, around=()):
    """Each text below the element, with the elements that it stands in, innermost first."""
    within = (element, *around)
    if element.text:
        yield element.text, within
    for child in element:
        yield from texts(child, within)
        if child.tail:
            yield child.tail, within


def run(text, within, heading, table_cell, is_list, look, link):
    """`look(element)` is what the element says about its text's looks, a dictionary."""
    looks = {}
    for element in reversed(within):
        looks.update(look(element))
    colour = looks.get("color", "").lstrip("#")
    return {
        "text": text, "bold": looks.get("font-weight") in ("bold", "600", "700", "800", "900"),
        "colour": "#" + colour if len(colour) == 6 else "",
        "link": next((address for element in within if (address := element.get(name("xlink:href")))
                      and element.tag == link), ""),
        "heading": any(map(heading, within)), "list": any(map(is_list, within)),
        "cell": any(element.tag == table_cell for element in within), "looks": looks,
    }


class OpenDocument:
    def __init__(self, path):
        self.tree = xml.parse(path).getroot()
        self.styles = {(style.get(name("style:family")), style.get(name("style:name"))): style
                       for style in self.tree.iter(name("style:style"))}
        for table in self.tree.iter(name("table:table")):
            self.name_cell_styles(table)

    @staticmethod
    def name_cell_styles(table):
        """A cell without a style of its own has that of its column."""
        styles = []
        for column in table.iter(name("table:table-column")):
            count = min(int(column.get(name("table:number-columns-repeated"), "1")), 100)
            styles += [column.get(name("table:default-cell-style-name"))] * count
        for row in table.iter(name("table:table-row")):
            for cell, style in zip(row, styles):
                if style and cell.get(name("table:style-name")) is None:
                    cell.set(name("table:style-name"), style)

    def style_of(self, element):
        for kind, families in [("text", ["text", "paragraph"]), ("table", ["table-cell"])]:
            called = element.get(name(f"{kind}:style-name"))
            for family in families if called else []:
                if (family, called) in self.styles:
                    return self.styles[family, called]
        return None

    def lineage(self, style):
        """The style and those that it is made of, the furthest first."""
        chain = []
        while style is not None and style not in chain:
            chain.insert(0, style)
            style = self.styles.get((style.get(name("style:family")),
                                     style.get(name("style:parent-style-name"))))
        return chain

    def look(self, element):
        looks = {}
        for style in self.lineage(self.style_of(element)):
            for kind in ("paragraph", "text"):
                for properties in style.iter(name(f"style:{kind}-properties")):
                    looks.update({key.partition("}")[2]: value
                                  for key, value in properties.items()})
        return looks

    def is_heading(self, element):
        return element.tag == name("text:h") or any(
            "Heading" in style.get(name("style:name"))
            for style in self.lineage(self.style_of(element)))

    def runs(self):
        body = self.tree.find(name("office:body"))
        return [run(text, within, self.is_heading, name("table:table-cell"),
                    lambda element: element.tag == name("text:list"), self.look, name("text:a"))
                for text, within in texts(body)
                if any(element.tag in (name("text:p"), name("text:h")) for element in within)]


class AbiWordDocument:
    def __init__(self, path):
        # It writes an empty attribute beside the full one now and then.
        text = path.read_text(encoding="utf-8").replace(' props="" props=', " props=")
        self.tree = xml.fromstring(text.encode())
        self.styles = {style.get("name"): style for style in self.tree.iter(name("abw:s"))}

    @staticmethod
    def properties(element):
        pairs = (pair.partition(":") for pair in element.get("props", "").split(";"))
        return {key.strip(): value.strip() for key, _, value in pairs}

    def look(self, element):
        style = self.styles.get(element.get("style"))
        return {**(self.properties(style) if style is not None else {}), **self.properties(element)}

    def runs(self):
        return [run(text, within, lambda element: "Heading" in element.get("style", ""),
                    name("abw:cell"), lambda element: element.get("listid") is not None, self.look,
                    name("abw:a"))
                for section in self.tree.iter(name("abw:section"))
                for text, within in texts(section)
                if any(element.tag == name("abw:p") for element in within)]
