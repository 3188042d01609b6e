# How Sphinx makes the site (make_site.py calls it). Made to be opened from a folder, without a web server.
import os

project = "Mirovelcom"
version = release = os.environ["MIROVEL_VERSION"]
extensions = ["myst_parser"]
myst_heading_anchors = 4
root_doc = "index"

html_theme = "sphinx_rtd_theme"
html_theme_options = {"collapse_navigation": False, "navigation_depth": 2, "prev_next_buttons_location": None}
html_title = f"Mirovelcom {version}"
html_static_path = ["static"]
html_css_files = ["site.css"]
html_copy_source = False
html_show_copyright = False
html_show_sphinx = False
# Without a server a browser does not let a page read others, so results are shown by their titles.
html_show_search_summary = False
smartquotes = False
pygments_style = "friendly"
# Templates and samples are read where they lie, not here.
highlight_language = "none"
