#include "VolumeHandle.h"

#include "Volume.h"

VolumeHandle::VolumeHandle(Volume* volume) : m_volume(volume) {
    m_volume->attach(this);
}

VolumeHandle::~VolumeHandle() {
    invalidate();
}

void VolumeHandle::invalidate() {
    if (m_volume != nullptr) {
        m_volume->detach(this);
        m_volume = nullptr;
    }
}
