// SPDX-FileCopyrightText: 2026 The ZPanoHead authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QPixmap;

/// What the host knows of one picture. Made by ZIApplication::ReadImageInfo() in a page's reading
/// thread, then asked by the page in the window's thread only.
///
/// The host owns it and keeps it until its application object goes: a page may ask again for as
/// long as it lives, and is never told of a change. The plug-ins neither delete nor copy it.
///
/// The order of the virtual functions is binary contract: the reserved ones keep later places.
class ImageInfo {
public:
    virtual ~ImageInfo() = default;

    /// A small upright copy of the picture (its orientation tag is already applied); pages draw it
    /// into squares of 96 pixels, whatever its size. May be null: nothing is drawn then. The
    /// reference is valid until the next call on any picture, so that a host need not keep pixmaps.
    virtual const QPixmap &GetThumbnail() const = 0;

    virtual void Reserved2() { }
    virtual void Reserved3() { }
    virtual void Reserved4() { }
    virtual void Reserved5() { }
    virtual void Reserved6() { }
    virtual void Reserved7() { }
    virtual void Reserved8() { }
    virtual void Reserved9() { }
    virtual void Reserved10() { }
    virtual void Reserved11() { }

    /// Focal length in millimetres, as on 36 x 24 mm film (not the lens's own on a smaller sensor);
    /// 0 when unknown.
    virtual float GetFocalLength() const = 0;

    /// 0: standard (rectilinear) lens, also where it is unknown; 1: fisheye.
    virtual int GetLensType() const = 0;

    virtual void Reserved14() { }

    /// A value that is equal for equally exposed pictures and grows from dark to bright; the unit
    /// is the host's, 0 for all when unknown. VR Drive 2 takes the middle one of a stack as its
    /// reference.
    virtual float GetExposure() const = 0;
};
