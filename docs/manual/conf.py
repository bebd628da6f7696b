"""Sphinx's settings. scripts/manual runs it on build/manual/fuente, not here."""
import os

project = "Kestra"
language = "es"
author = "Kestra"
version = release = os.environ.get("KESTRA_VERSION", "")
html_title = f"Kestra {version}"
extensions = ["myst_parser", "sphinx_copybutton", "sphinx_inline_tabs"]
myst_enable_extensions = ["deflist", "colon_fence"]
myst_heading_anchors = 4
nitpicky = True
suppress_warnings = ["myst.header"]
html_theme = "furo"
html_static_path = ["_static"]
html_css_files = ["manual.css"]
html_show_sphinx = False
html_show_copyright = False
html_show_sourcelink = False
html_copy_source = False
html_last_updated_fmt = None
html_permalinks_icon = "#"
copybutton_prompt_text = "$ "
html_theme_options = {
    "navigation_with_keys": True,
    "light_css_variables": {"color-brand-primary": "#0b5d57", "color-brand-content": "#0b5d57"},
    "dark_css_variables": {"color-brand-primary": "#6fd3c7", "color-brand-content": "#6fd3c7"},
}
pygments_style = "friendly"
pygments_dark_style = "github-dark"
