#pragma once

/// The fonts that texts in drawings are written in. Where no file can be opened, a font that was
/// not loaded before would be a row of boxes, so the libraries are to know of no other.
namespace PreparedFonts {

/// Lets fontconfig, and so Qt, know of a few fonts only: the system's choice for the usual three
/// families in four styles, and for scripts that those lack. Before there is an application
/// object. Where that fails it knows them all.
void chooseFew();

/// Loads them. Needs a QGuiApplication.
void load();

} // namespace PreparedFonts
