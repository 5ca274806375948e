#include "SceneFiles.h"

#include "Material.h"
#include "SoundClips.h"

namespace host {

std::optional<Scene> LoadScene(const QStringList& files, ImportError& error)
{
    std::optional<Material> material = ReadMaterial(files, kSceneFrameRate, error);
    if (!material)
        return std::nullopt;
    Scene scene = material->rows;
    AddSounds(scene, material->sounds, 0);
    return scene;
}

} // namespace host
