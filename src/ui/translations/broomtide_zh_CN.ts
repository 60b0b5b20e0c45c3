<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>CandidateText</name>
    <message>
        <source>Unknown date</source>
        <translation>日期未知</translation>
    </message>
    <message>
        <source>selected</source>
        <translation>已选择</translation>
    </message>
    <message>
        <source>not selected</source>
        <translation>未选择</translation>
    </message>
    <message>
        <source>details shown</source>
        <translation>已显示详情</translation>
    </message>
    <message>
        <source>details hidden</source>
        <translation>已隐藏详情</translation>
    </message>
    <message>
        <source>Project: %1</source>
        <translation>项目：%1</translation>
    </message>
    <message>
        <source>How to regenerate: %1</source>
        <translation>如何重新生成：%1</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Usage: broomtide
Opens the window that finds disposable developer files and moves them to the Trash.

  -h, --help     print this and exit
  -v, --version  print the version and exit

Qt&apos;s own options, such as -platform, are understood too. broomtide-cli does the same in a
terminal.
</source>
        <translation>用法：broomtide
打开窗口，查找可清理的开发文件并将其移到回收站。

  -h, --help     显示此帮助并退出
  -v, --version  显示版本并退出

同时支持 Qt 自身的选项，例如 -platform。在终端中可使用功能相同的 broomtide-cli。
</translation>
    </message>
    <message>
        <source>broomtide: There is no display to open a window on. In a terminal, use broomtide-cli.
</source>
        <translation>broomtide：没有可用于打开窗口的显示器。在终端中请使用 broomtide-cli。
</translation>
    </message>
    <message>
        <source>broomtide: &apos;%1&apos; is not understood; the window takes no folder.
Run broomtide --help for more information.
</source>
        <translation>broomtide：无法识别“%1”；窗口程序不接受文件夹参数。
运行 broomtide --help 可了解更多信息。
</translation>
    </message>
</context>
<context>
    <name>DisplayText</name>
    <message>
        <source>%1 byte</source>
        <translation>%1 字节</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 字节</translation>
    </message>
    <message>
        <source>%1 KB</source>
        <translation>%1 KB</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1 GB</translation>
    </message>
    <message>
        <source>%1 TB</source>
        <translation>%1 TB</translation>
    </message>
    <message>
        <source>%1 PB</source>
        <translation>%1 PB</translation>
    </message>
    <message>
        <source>%1 EB</source>
        <translation>%1 EB</translation>
    </message>
    <message>
        <source>Unusual characters</source>
        <translation>异常字符</translation>
    </message>
    <message>
        <source>Zero KB</source>
        <translation>0 KB</translation>
    </message>
</context>
<context>
    <name>Engine</name>
    <message>
        <source>Nothing to clean here</source>
        <translation>这里没有可清理的内容</translation>
    </message>
    <message>
        <source>Cleanup complete</source>
        <translation>清理完成</translation>
    </message>
    <message>
        <source>Move selected items to Trash?</source>
        <translation>将所选条目移到回收站？</translation>
    </message>
    <message>
        <source>No cleanup history</source>
        <translation>没有清理历史</translation>
    </message>
    <message>
        <source>Completed cleanups will appear here.</source>
        <translation>已完成的清理会显示在这里。</translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) could not be read and were skipped.</source>
        <translation>
            <numerusform>有 %n 个条目无法读取，已跳过。</numerusform>
        </translation>
    </message>
    <message>
        <source>The known developer cache locations under this folder are already clean.</source>
        <translation>此文件夹下的已知开发缓存位置已经是干净的。</translation>
    </message>
    <message numerus="yes">
        <source>Broomtide scanned %n items but did not find a supported disposable artifact in this folder.</source>
        <translation>
            <numerusform>Broomtide 扫描了 %n 个条目，但在此文件夹中未找到受支持的可清理产物。</numerusform>
        </translation>
    </message>
    <message>
        <source>Preparing scan…</source>
        <translation>正在准备扫描…</translation>
    </message>
    <message>
        <source>Scanning Downloads…</source>
        <translation>正在扫描“下载”…</translation>
    </message>
    <message>
        <source>Scan complete</source>
        <translation>扫描完成</translation>
    </message>
    <message>
        <source>Calculating %1…</source>
        <translation>正在计算 %1 的大小…</translation>
    </message>
    <message numerus="yes">
        <source>Detected %n project context(s)…</source>
        <translation>
            <numerusform>检测到 %n 个项目…</numerusform>
        </translation>
    </message>
    <message>
        <source>Detected %1 project from %2.</source>
        <translation>根据 %2 检测到 %1 项目。</translation>
    </message>
    <message>
        <source>Well-known developer cache location (~/%1).</source>
        <translation>已知的开发缓存位置 (~/%1)。</translation>
    </message>
    <message>
        <source>No known developer cache locations were found under “%1”. When scanning developer caches, select your home folder (%2) in the picker.</source>
        <translation>在“%1”下未找到已知的开发缓存位置。扫描开发缓存时，请选择您的主文件夹 (%2)。</translation>
    </message>
    <message>
        <source>your home folder</source>
        <translation>您的主文件夹</translation>
    </message>
    <message>
        <source>Recognized artifact signature, but no supported project manifest was found nearby.</source>
        <translation>识别出产物特征，但附近未找到受支持的项目清单文件。</translation>
    </message>
    <message>
        <source>The path is ignored by Git.</source>
        <translation>此路径被 Git 忽略。</translation>
    </message>
    <message>
        <source>The path is untracked, but not explicitly ignored by Git.</source>
        <translation>此路径未被跟踪，但也未被 Git 明确忽略。</translation>
    </message>
    <message>
        <source>Git status could not be verified.</source>
        <translation>无法核实 Git 状态。</translation>
    </message>
    <message>
        <source>No Git repository was detected for this project.</source>
        <translation>未检测到此项目的 Git 仓库。</translation>
    </message>
    <message>
        <source>This is a generic artifact name, so Broomtide requires manual selection.</source>
        <translation>这是通用的产物名称，因此需要您手动选择。</translation>
    </message>
    <message>
        <source>The artifact name and project ecosystem agree.</source>
        <translation>产物名称与项目的生态系统相符。</translation>
    </message>
    <message>
        <source>Matched the Downloads cleanup rule.</source>
        <translation>符合“下载”清理规则。</translation>
    </message>
    <message>
        <source>The item disappeared while it was being scanned.</source>
        <translation>该条目在扫描过程中消失了。</translation>
    </message>
    <message>
        <source>Scan cancelled. No files were changed.</source>
        <translation>扫描已取消。没有更改任何文件。</translation>
    </message>
    <message>
        <source>Cleanup finished, but Broomtide could not save the local history.</source>
        <translation>清理已完成，但 Broomtide 无法保存本地历史。</translation>
    </message>
    <message>
        <source>.NET</source>
        <translation>.NET</translation>
    </message>
    <message>
        <source>.NET compiler output that can be rebuilt.</source>
        <translation>.NET 编译器输出，可以重新构建。</translation>
    </message>
    <message>
        <source>.NET intermediate compiler output that can be rebuilt.</source>
        <translation>.NET 编译器的中间输出，可以重新构建。</translation>
    </message>
    <message>
        <source>.NET test results that can be regenerated.</source>
        <translation>.NET 测试结果，可以重新生成。</translation>
    </message>
    <message>
        <source>AWS SAM build output that can be recreated.</source>
        <translation>AWS SAM 构建输出，可以重新创建。</translation>
    </message>
    <message>
        <source>Angular CLI cache. It can be recreated.</source>
        <translation>Angular CLI 缓存，可以重新创建。</translation>
    </message>
    <message>
        <source>Archive</source>
        <translation>归档</translation>
    </message>
    <message>
        <source>Archive older than 30 days.</source>
        <translation>超过 30 天的归档。</translation>
    </message>
    <message>
        <source>Broomtide could not move this item to Trash. It may be locked, in use, or require additional permission.</source>
        <translation>Broomtide 无法将此条目移到回收站。它可能已被锁定、正在使用或需要额外权限。</translation>
    </message>
    <message>
        <source>Broomtide does not have permission to access this folder. Choose it again or grant access in macOS Settings.</source>
        <translation>Broomtide 没有访问此文件夹的权限。请重新选择，或在系统设置中授予访问权限。</translation>
    </message>
    <message>
        <source>Broomtide runs as root with the home folder of another user, in which it would keep what belongs to root. Run it as that user, or with the home folder of root (sudo -H).</source>
        <translation>Broomtide 以 root 身份运行，但使用的是其他用户的主文件夹，属于 root 的数据会保存在其中。请以该用户身份运行，或使用 root 自己的主文件夹（sudo -H）。</translation>
    </message>
    <message>
        <source>Broomtide scans only the folder you choose. Nothing is uploaded.</source>
        <translation>Broomtide 只扫描您选择的文件夹。不会上传任何内容。</translation>
    </message>
    <message>
        <source>Build Cache</source>
        <translation>构建缓存</translation>
    </message>
    <message>
        <source>Build Output</source>
        <translation>构建输出</translation>
    </message>
    <message>
        <source>Build the project again in Xcode.</source>
        <translation>在 Xcode 中重新构建项目。</translation>
    </message>
    <message>
        <source>C / C++</source>
        <translation>C / C++</translation>
    </message>
    <message>
        <source>CMake debug build output that can be rebuilt.</source>
        <translation>CMake 的 Debug 构建输出，可以重新构建。</translation>
    </message>
    <message>
        <source>CMake release build output that can be rebuilt.</source>
        <translation>CMake 的 Release 构建输出，可以重新构建。</translation>
    </message>
    <message>
        <source>CMake-generated build metadata that can be recreated.</source>
        <translation>CMake 生成的构建元数据，可以重新创建。</translation>
    </message>
    <message>
        <source>CMake-generated configuration cache.</source>
        <translation>CMake 生成的配置缓存。</translation>
    </message>
    <message>
        <source>CSV exports may contain important data. Review before cleaning.</source>
        <translation>CSV 导出文件可能包含重要数据。清理前请先检查。</translation>
    </message>
    <message>
        <source>Cabal build output that can be rebuilt.</source>
        <translation>Cabal 构建输出，可以重新构建。</translation>
    </message>
    <message>
        <source>Cache</source>
        <translation>缓存</translation>
    </message>
    <message>
        <source>Cannot allocate memory</source>
        <translation>无法分配内存</translation>
    </message>
    <message>
        <source>Cargo crate registry cache. Crates are downloaded again on the next build.</source>
        <translation>Cargo crate 注册表缓存。下次构建时会重新下载 crate。</translation>
    </message>
    <message>
        <source>Choose a project folder</source>
        <translation>选择项目文件夹</translation>
    </message>
    <message>
        <source>Choose your Downloads folder</source>
        <translation>选择“下载”文件夹</translation>
    </message>
    <message>
        <source>Choose your home folder</source>
        <translation>选择主文件夹</translation>
    </message>
    <message>
        <source>Cleanup was cancelled.</source>
        <translation>清理已取消。</translation>
    </message>
    <message>
        <source>CocoaPods dependencies can usually be restored with pod install.</source>
        <translation>CocoaPods 依赖项通常可以通过 pod install 恢复。</translation>
    </message>
    <message>
        <source>CocoaPods download cache. Pods are downloaded again on the next install.</source>
        <translation>CocoaPods 下载缓存。下次安装时会重新下载 Pod。</translation>
    </message>
    <message>
        <source>Common generated build output that can be rebuilt.</source>
        <translation>常见的构建输出，可以重新构建。</translation>
    </message>
    <message>
        <source>Common production build output that can be rebuilt.</source>
        <translation>常见的生产构建输出，可以重新构建。</translation>
    </message>
    <message>
        <source>Common static export or compiler output that can be rebuilt.</source>
        <translation>常见的静态导出或编译器输出，可以重新构建。</translation>
    </message>
    <message>
        <source>Configure and build the CMake project again.</source>
        <translation>重新配置并构建 CMake 项目。</translation>
    </message>
    <message>
        <source>Dart and Flutter tool state that can be regenerated.</source>
        <translation>Dart 和 Flutter 的工具状态，可以重新生成。</translation>
    </message>
    <message>
        <source>Debug symbols copied from connected iOS devices. Xcode copies them again on the next connection, which takes a while.</source>
        <translation>从已连接的 iOS 设备复制的调试符号。Xcode 会在下次连接时重新复制，需要一些时间。</translation>
    </message>
    <message>
        <source>Debug symbols copied from paired Apple Watches. Xcode copies them again on the next connection.</source>
        <translation>从已配对的 Apple Watch 复制的调试符号。Xcode 会在下次连接时重新复制。</translation>
    </message>
    <message>
        <source>Dependencies</source>
        <translation>依赖项</translation>
    </message>
    <message>
        <source>Dependencies can be restored with the project&apos;s package manager.</source>
        <translation>可以使用项目的包管理器恢复依赖项。</translation>
    </message>
    <message>
        <source>Dependencies may be restored with Composer or another package manager.</source>
        <translation>可以使用 Composer 或其他包管理器恢复依赖项。</translation>
    </message>
    <message>
        <source>Dependency Cache</source>
        <translation>依赖缓存</translation>
    </message>
    <message>
        <source>Dependency Metadata</source>
        <translation>依赖元数据</translation>
    </message>
    <message>
        <source>Device Symbols</source>
        <translation>设备符号</translation>
    </message>
    <message>
        <source>Document</source>
        <translation>文档</translation>
    </message>
    <message>
        <source>Downloaded Terraform providers and modules can be restored with terraform init.</source>
        <translation>已下载的 Terraform provider 和模块可以通过 terraform init 恢复。</translation>
    </message>
    <message>
        <source>ESLint cache. It can be recreated.</source>
        <translation>ESLint 缓存，可以重新创建。</translation>
    </message>
    <message>
        <source>Elixir</source>
        <translation>Elixir</translation>
    </message>
    <message>
        <source>Elixir build output that can be rebuilt.</source>
        <translation>Elixir 构建输出，可以重新构建。</translation>
    </message>
    <message>
        <source>Elixir dependencies can be restored with mix deps.get.</source>
        <translation>Elixir 依赖项可以通过 mix deps.get 恢复。</translation>
    </message>
    <message>
        <source>Expo development cache. It can be recreated.</source>
        <translation>Expo 开发缓存，可以重新创建。</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>导出文件</translation>
    </message>
    <message>
        <source>File name too long</source>
        <translation>文件名过长</translation>
    </message>
    <message>
        <source>Flutter / Dart</source>
        <translation>Flutter / Dart</translation>
    </message>
    <message>
        <source>Generated Astro metadata and build cache.</source>
        <translation>Astro 生成的元数据和构建缓存。</translation>
    </message>
    <message>
        <source>Generated Docusaurus build metadata.</source>
        <translation>Docusaurus 生成的构建元数据。</translation>
    </message>
    <message>
        <source>Generated Flutter plugin dependency metadata.</source>
        <translation>生成的 Flutter 插件依赖元数据。</translation>
    </message>
    <message>
        <source>Generated Flutter plugin metadata.</source>
        <translation>生成的 Flutter 插件元数据。</translation>
    </message>
    <message>
        <source>Generated NYC coverage data.</source>
        <translation>NYC 生成的覆盖率数据。</translation>
    </message>
    <message>
        <source>Generated Python HTML coverage output.</source>
        <translation>生成的 Python HTML 覆盖率报告。</translation>
    </message>
    <message>
        <source>Generated Storybook static build.</source>
        <translation>生成的 Storybook 静态构建。</translation>
    </message>
    <message>
        <source>Generated by Next.js and can be recreated.</source>
        <translation>由 Next.js 生成，可以重新创建。</translation>
    </message>
    <message>
        <source>Generated by Nuxt and can be recreated.</source>
        <translation>由 Nuxt 生成，可以重新创建。</translation>
    </message>
    <message>
        <source>Generated by SvelteKit and can be recreated.</source>
        <translation>由 SvelteKit 生成，可以重新创建。</translation>
    </message>
    <message>
        <source>Generated framework output that can be rebuilt.</source>
        <translation>框架生成的输出，可以重新构建。</translation>
    </message>
    <message>
        <source>Generated test coverage output.</source>
        <translation>生成的测试覆盖率输出。</translation>
    </message>
    <message>
        <source>Generic cache folder. Review it if you are unsure.</source>
        <translation>通用缓存文件夹。如不确定，请先检查。</translation>
    </message>
    <message>
        <source>Git status could not be revalidated. Broomtide left the item untouched.</source>
        <translation>无法重新核实 Git 状态。Broomtide 未改动此条目。</translation>
    </message>
    <message>
        <source>Git status unavailable</source>
        <translation>Git 状态不可用</translation>
    </message>
    <message>
        <source>Global Gradle dependency and build cache. Dependencies are downloaded again on the next build.</source>
        <translation>Gradle 的全局依赖和构建缓存。下次构建时会重新下载依赖项。</translation>
    </message>
    <message>
        <source>Go</source>
        <translation>Go</translation>
    </message>
    <message>
        <source>Go build cache. The compiler recreates it on the next build.</source>
        <translation>Go 构建缓存。编译器会在下次构建时重新创建。</translation>
    </message>
    <message>
        <source>Haskell</source>
        <translation>Haskell</translation>
    </message>
    <message>
        <source>High confidence</source>
        <translation>高可信度</translation>
    </message>
    <message>
        <source>Homebrew download cache. Formulae are downloaded again when needed.</source>
        <translation>Homebrew 下载缓存。需要时会重新下载 formula。</translation>
    </message>
    <message>
        <source>Homebrew re-downloads packages on demand.</source>
        <translation>Homebrew 会按需重新下载软件包。</translation>
    </message>
    <message>
        <source>Ignored by Git</source>
        <translation>Git 已忽略</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>输入/输出错误</translation>
    </message>
    <message>
        <source>Installer</source>
        <translation>安装包</translation>
    </message>
    <message>
        <source>Installer older than 7 days.</source>
        <translation>超过 7 天的安装包。</translation>
    </message>
    <message>
        <source>Invalid argument</source>
        <translation>无效的参数</translation>
    </message>
    <message>
        <source>Java / Kotlin</source>
        <translation>Java / Kotlin</translation>
    </message>
    <message>
        <source>JavaScript / TypeScript</source>
        <translation>JavaScript / TypeScript</translation>
    </message>
    <message>
        <source>Keep your home folder selected and press Scan Caches. Broomtide checks well-known developer cache locations under it. Nothing is uploaded.</source>
        <translation>保持选中主文件夹，然后点击“扫描缓存”。Broomtide 会检查其中已知的开发缓存位置。不会上传任何内容。</translation>
    </message>
    <message>
        <source>Legacy Flutter package metadata that can be regenerated.</source>
        <translation>旧式 Flutter 软件包元数据，可以重新生成。</translation>
    </message>
    <message>
        <source>Lint Cache</source>
        <translation>Lint 缓存</translation>
    </message>
    <message>
        <source>Local Maven repository. Dependencies are downloaded again on the next build.</source>
        <translation>本地 Maven 仓库。下次构建时会重新下载依赖项。</translation>
    </message>
    <message>
        <source>Local Vercel project metadata. Cleaning it may require linking the project again.</source>
        <translation>本地 Vercel 项目元数据。清理后可能需要重新关联项目。</translation>
    </message>
    <message>
        <source>Log files are usually safe to remove.</source>
        <translation>日志文件通常可以安全移除。</translation>
    </message>
    <message>
        <source>Logs</source>
        <translation>日志</translation>
    </message>
    <message>
        <source>Low confidence</source>
        <translation>低可信度</translation>
    </message>
    <message>
        <source>Medium confidence</source>
        <translation>中可信度</translation>
    </message>
    <message>
        <source>Mypy cache. It can be recreated.</source>
        <translation>Mypy 缓存，可以重新创建。</translation>
    </message>
    <message>
        <source>No such device</source>
        <translation>没有该设备</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>没有该文件或目录</translation>
    </message>
    <message>
        <source>Not a directory</source>
        <translation>不是目录</translation>
    </message>
    <message>
        <source>Nox environments can be recreated.</source>
        <translation>Nox 环境可以重新创建。</translation>
    </message>
    <message>
        <source>Operation not permitted</source>
        <translation>不允许的操作</translation>
    </message>
    <message>
        <source>PDF documents may be important. Review before cleaning.</source>
        <translation>PDF 文档可能很重要。清理前请先检查。</translation>
    </message>
    <message>
        <source>PHP</source>
        <translation>PHP</translation>
    </message>
    <message>
        <source>Package Cache</source>
        <translation>软件包缓存</translation>
    </message>
    <message>
        <source>Parcel cache. It can be recreated.</source>
        <translation>Parcel 缓存，可以重新创建。</translation>
    </message>
    <message>
        <source>Per-project Xcode build data. Xcode recreates it on the next build.</source>
        <translation>各项目的 Xcode 构建数据。Xcode 会在下次构建时重新创建。</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>权限不足</translation>
    </message>
    <message>
        <source>Playwright browser binaries. They are downloaded again on the next test run, which can be large.</source>
        <translation>Playwright 浏览器程序。下次运行测试时会重新下载，体积可能较大。</translation>
    </message>
    <message>
        <source>Project Metadata</source>
        <translation>项目元数据</translation>
    </message>
    <message>
        <source>Project log directory. Review before cleaning.</source>
        <translation>项目日志目录。清理前请先检查。</translation>
    </message>
    <message>
        <source>Project-local Gradle cache. It can be recreated.</source>
        <translation>项目本地的 Gradle 缓存，可以重新创建。</translation>
    </message>
    <message>
        <source>Project-local Xcode build data. Xcode recreates it when needed.</source>
        <translation>项目本地的 Xcode 构建数据。Xcode 会在需要时重新创建。</translation>
    </message>
    <message>
        <source>Project-local pnpm store. Dependencies may need to be downloaded again.</source>
        <translation>项目本地的 pnpm 存储。可能需要重新下载依赖项。</translation>
    </message>
    <message>
        <source>Pytest cache. It can be recreated.</source>
        <translation>Pytest 缓存，可以重新创建。</translation>
    </message>
    <message>
        <source>Python</source>
        <translation>Python</translation>
    </message>
    <message>
        <source>Python Cache</source>
        <translation>Python 缓存</translation>
    </message>
    <message>
        <source>Python bytecode cache. It can be recreated.</source>
        <translation>Python 字节码缓存，可以重新创建。</translation>
    </message>
    <message>
        <source>Python virtual environment. Recreate it before running the project again.</source>
        <translation>Python 虚拟环境。再次运行项目前请重新创建。</translation>
    </message>
    <message>
        <source>Reconnect the device and let Xcode prepare it again.</source>
        <translation>重新连接设备，让 Xcode 再次准备。</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>录屏</translation>
    </message>
    <message>
        <source>Recreate the environment and install dependencies from the project lock or requirements file.</source>
        <translation>重新创建环境，并根据项目的 lock 或 requirements 文件安装依赖项。</translation>
    </message>
    <message>
        <source>Restore dependencies with the project&apos;s package manager.</source>
        <translation>使用项目的包管理器恢复依赖项。</translation>
    </message>
    <message>
        <source>Review First</source>
        <translation>请先检查</translation>
    </message>
    <message>
        <source>Ruby</source>
        <translation>Ruby</translation>
    </message>
    <message>
        <source>Ruff cache. It can be recreated.</source>
        <translation>Ruff 缓存，可以重新创建。</translation>
    </message>
    <message>
        <source>Run cargo build again.</source>
        <translation>重新运行 cargo build。</translation>
    </message>
    <message>
        <source>Run dotnet build or dotnet test again.</source>
        <translation>重新运行 dotnet build 或 dotnet test。</translation>
    </message>
    <message>
        <source>Run flutter pub get and rebuild the project.</source>
        <translation>运行 flutter pub get 并重新构建项目。</translation>
    </message>
    <message>
        <source>Run go build again.</source>
        <translation>重新运行 go build。</translation>
    </message>
    <message>
        <source>Run mix compile again.</source>
        <translation>重新运行 mix compile。</translation>
    </message>
    <message>
        <source>Run mix deps.get again.</source>
        <translation>重新运行 mix deps.get。</translation>
    </message>
    <message>
        <source>Run npm install, pnpm install, or yarn install.</source>
        <translation>运行 npm install、pnpm install 或 yarn install。</translation>
    </message>
    <message>
        <source>Run npx playwright install again.</source>
        <translation>重新运行 npx playwright install。</translation>
    </message>
    <message>
        <source>Run pod install again.</source>
        <translation>重新运行 pod install。</translation>
    </message>
    <message>
        <source>Run swift build again.</source>
        <translation>重新运行 swift build。</translation>
    </message>
    <message>
        <source>Run swift package resolve or build the project again.</source>
        <translation>运行 swift package resolve 或重新构建项目。</translation>
    </message>
    <message>
        <source>Run terraform init or terragrunt init again.</source>
        <translation>重新运行 terraform init 或 terragrunt init。</translation>
    </message>
    <message>
        <source>Run the Gradle build again.</source>
        <translation>重新运行 Gradle 构建。</translation>
    </message>
    <message>
        <source>Run the Maven build again.</source>
        <translation>重新运行 Maven 构建。</translation>
    </message>
    <message>
        <source>Run the Stack or Cabal build again.</source>
        <translation>重新运行 Stack 或 Cabal 构建。</translation>
    </message>
    <message>
        <source>Run the deployment framework build or package command again.</source>
        <translation>重新运行部署框架的构建或打包命令。</translation>
    </message>
    <message>
        <source>Run the project&apos;s compiler or build command again.</source>
        <translation>重新运行项目的编译器或构建命令。</translation>
    </message>
    <message>
        <source>Run the project&apos;s package-manager build command.</source>
        <translation>运行项目包管理器的构建命令。</translation>
    </message>
    <message>
        <source>Run the relevant Python test, lint, or type-check command again.</source>
        <translation>重新运行相应的 Python 测试、Lint 或类型检查命令。</translation>
    </message>
    <message>
        <source>Run the relevant project build or development command again.</source>
        <translation>重新运行项目相应的构建或开发命令。</translation>
    </message>
    <message>
        <source>Run the test suite with coverage again.</source>
        <translation>重新运行带覆盖率的测试套件。</translation>
    </message>
    <message>
        <source>Run yarn install again.</source>
        <translation>重新运行 yarn install。</translation>
    </message>
    <message>
        <source>Rust</source>
        <translation>Rust</translation>
    </message>
    <message>
        <source>Rust, Maven, or other compiler output. Confirm this folder is generated.</source>
        <translation>Rust、Maven 或其他编译器的输出。请确认此文件夹是自动生成的。</translation>
    </message>
    <message>
        <source>Safe to Clean</source>
        <translation>可安全清理</translation>
    </message>
    <message>
        <source>Scan Caches</source>
        <translation>扫描缓存</translation>
    </message>
    <message>
        <source>Scan Folder</source>
        <translation>扫描文件夹</translation>
    </message>
    <message>
        <source>Screen recording older than 30 days.</source>
        <translation>超过 30 天的录屏。</translation>
    </message>
    <message>
        <source>Screenshot</source>
        <translation>截图</translation>
    </message>
    <message>
        <source>Screenshot older than 30 days.</source>
        <translation>超过 30 天的截图。</translation>
    </message>
    <message>
        <source>Serverless Framework build output that can be recreated.</source>
        <translation>Serverless Framework 构建输出，可以重新创建。</translation>
    </message>
    <message>
        <source>Simulator Cache</source>
        <translation>模拟器缓存</translation>
    </message>
    <message>
        <source>Simulator runtime caches. The simulator recreates them when needed.</source>
        <translation>模拟器运行时缓存。模拟器会在需要时重新创建。</translation>
    </message>
    <message>
        <source>Spreadsheet exports may contain important data. Review before cleaning.</source>
        <translation>导出的电子表格可能包含重要数据。清理前请先检查。</translation>
    </message>
    <message>
        <source>Stack build output that can be rebuilt.</source>
        <translation>Stack 构建输出，可以重新构建。</translation>
    </message>
    <message>
        <source>Stale file handle</source>
        <translation>过期的文件句柄</translation>
    </message>
    <message>
        <source>Stylelint cache. It can be recreated.</source>
        <translation>Stylelint 缓存，可以重新创建。</translation>
    </message>
    <message>
        <source>Swift / Apple</source>
        <translation>Swift / Apple</translation>
    </message>
    <message>
        <source>Swift Package Manager build output that can be rebuilt.</source>
        <translation>Swift Package Manager 构建输出，可以重新构建。</translation>
    </message>
    <message>
        <source>Swift Package Manager download cache. Packages are downloaded again when resolved.</source>
        <translation>Swift Package Manager 下载缓存。解析时会重新下载软件包。</translation>
    </message>
    <message>
        <source>Temporary Files</source>
        <translation>临时文件</translation>
    </message>
    <message>
        <source>Temporary project files. Review before cleaning.</source>
        <translation>项目临时文件。清理前请先检查。</translation>
    </message>
    <message>
        <source>Terraform</source>
        <translation>Terraform</translation>
    </message>
    <message>
        <source>Terragrunt download cache can be recreated.</source>
        <translation>Terragrunt 下载缓存可以重新创建。</translation>
    </message>
    <message>
        <source>Test Cache</source>
        <translation>测试缓存</translation>
    </message>
    <message>
        <source>Test Environment</source>
        <translation>测试环境</translation>
    </message>
    <message>
        <source>Test Output</source>
        <translation>测试输出</translation>
    </message>
    <message>
        <source>The item changed after the scan. Rescan before cleaning it.</source>
        <translation>该条目在扫描后发生了变化。清理前请重新扫描。</translation>
    </message>
    <message>
        <source>The item changed into a symbolic link and was skipped.</source>
        <translation>该条目已变为符号链接，已跳过。</translation>
    </message>
    <message>
        <source>The item is no longer ignored by Git. Rescan before cleaning it.</source>
        <translation>该条目不再被 Git 忽略。清理前请重新扫描。</translation>
    </message>
    <message>
        <source>The item is no longer inside the selected folder.</source>
        <translation>该条目已不在所选文件夹中。</translation>
    </message>
    <message>
        <source>The item is in use by %1 (%2). Broomtide left it untouched.</source>
        <translation>该条目正被 %1（%2）使用。Broomtide 未改动它。</translation>
    </message>
    <message>
        <source>The item is now tracked by Git. Broomtide left it untouched.</source>
        <translation>该条目现已被 Git 跟踪。Broomtide 未改动它。</translation>
    </message>
    <message>
        <source>The item was modified after the scan. Rescan before cleaning it.</source>
        <translation>该条目在扫描后被修改。清理前请重新扫描。</translation>
    </message>
    <message>
        <source>The operation was cancelled.</source>
        <translation>操作已取消。</translation>
    </message>
    <message>
        <source>The selected folder no longer exists or is not a directory.</source>
        <translation>所选文件夹已不存在，或者不是目录。</translation>
    </message>
    <message>
        <source>This item no longer exists. It may have been moved or deleted.</source>
        <translation>该条目已不存在，可能已被移动或删除。</translation>
    </message>
    <message>
        <source>Too many levels of symbolic links</source>
        <translation>符号链接的层数过多</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>打开的文件过多</translation>
    </message>
    <message>
        <source>Too many open files in system</source>
        <translation>系统中打开的文件过多</translation>
    </message>
    <message>
        <source>Tool Cache</source>
        <translation>工具缓存</translation>
    </message>
    <message>
        <source>Tox environments can be recreated.</source>
        <translation>Tox 环境可以重新创建。</translation>
    </message>
    <message>
        <source>Tracked by Git</source>
        <translation>Git 已跟踪</translation>
    </message>
    <message>
        <source>Transport endpoint is not connected</source>
        <translation>传输端点未连接</translation>
    </message>
    <message>
        <source>Turborepo cache. It can be recreated.</source>
        <translation>Turborepo 缓存，可以重新创建。</translation>
    </message>
    <message>
        <source>Type Check Cache</source>
        <translation>类型检查缓存</translation>
    </message>
    <message>
        <source>Untracked</source>
        <translation>未跟踪</translation>
    </message>
    <message>
        <source>Usually Safe</source>
        <translation>通常安全</translation>
    </message>
    <message>
        <source>Value too large for defined data type</source>
        <translation>对于定义的数据类型而言数值过大</translation>
    </message>
    <message>
        <source>Vite cache. It can be recreated.</source>
        <translation>Vite 缓存，可以重新创建。</translation>
    </message>
    <message>
        <source>Webpack cache or generated output that can be recreated.</source>
        <translation>Webpack 缓存或生成的输出，可以重新创建。</translation>
    </message>
    <message>
        <source>Xcode Build Data</source>
        <translation>Xcode 构建数据</translation>
    </message>
    <message>
        <source>Yarn download cache. Packages are downloaded again when installed.</source>
        <translation>Yarn 下载缓存。安装时会重新下载软件包。</translation>
    </message>
    <message>
        <source>macOS Metadata</source>
        <translation>macOS 元数据</translation>
    </message>
    <message>
        <source>macOS metadata file. It can be recreated.</source>
        <translation>macOS 元数据文件，可以重新创建。</translation>
    </message>
    <message>
        <source>npm download cache. Packages are downloaded again when installed.</source>
        <translation>npm 下载缓存。安装时会重新下载软件包。</translation>
    </message>
    <message>
        <source>npm re-downloads packages on demand.</source>
        <translation>npm 会按需重新下载软件包。</translation>
    </message>
    <message>
        <source>pip download cache. Python packages are downloaded again when installed.</source>
        <translation>pip 下载缓存。安装时会重新下载 Python 软件包。</translation>
    </message>
    <message>
        <source>pip re-downloads packages on demand.</source>
        <translation>pip 会按需重新下载软件包。</translation>
    </message>
    <message>
        <source>Bazel outputs and downloads of all workspaces. They are built and downloaded again on the next build, which takes a while.</source>
        <translation>所有 Bazel 工作区的输出和下载内容。下次构建时会重新构建和下载，需要一些时间。</translation>
    </message>
    <message>
        <source>Browsers downloaded by Puppeteer. They are downloaded again on the next install, which can be large.</source>
        <translation>Puppeteer 下载的浏览器。下次安装时会重新下载，体积可能较大。</translation>
    </message>
    <message>
        <source>Build the project again with ccache.</source>
        <translation>使用 ccache 重新构建项目。</translation>
    </message>
    <message>
        <source>Build the project again with sccache.</source>
        <translation>使用 sccache 重新构建项目。</translation>
    </message>
    <message>
        <source>Bun download cache. Packages are downloaded again when installed. Projects may hard-link into it, so it may free less than it shows.</source>
        <translation>Bun 下载缓存。安装时会重新下载软件包。项目可能通过硬链接使用其中的文件，因此实际释放的空间可能少于显示值。</translation>
    </message>
    <message>
        <source>Cabal cache of package indexes and sources. They are downloaded again on the next update and build.</source>
        <translation>Cabal 的软件包索引和源码缓存。下次更新和构建时会重新下载。</translation>
    </message>
    <message>
        <source>Cargo cache of Git dependencies. They are cloned again on the next build.</source>
        <translation>Cargo 的 Git 依赖缓存。下次构建时会重新克隆。</translation>
    </message>
    <message>
        <source>Code that Deno generated from modules. It is generated again on the next run.</source>
        <translation>Deno 从模块生成的代码。下次运行时会重新生成。</translation>
    </message>
    <message>
        <source>Compiler cache. Compilations are cached again on the next build.</source>
        <translation>编译器缓存。下次构建时会重新缓存编译结果。</translation>
    </message>
    <message>
        <source>Composer download cache. Packages are downloaded again when installed.</source>
        <translation>Composer 下载缓存。安装时会重新下载软件包。</translation>
    </message>
    <message>
        <source>Conan package cache. Packages are downloaded again on the next install; those made on this machine are made again from their recipes.</source>
        <translation>Conan 软件包缓存。下次安装时会重新下载软件包；在本机制作的软件包会根据配方重新制作。</translation>
    </message>
    <message>
        <source>Cypress binaries. They are downloaded again on the next install, which can be large.</source>
        <translation>Cypress 程序。下次安装时会重新下载，体积可能较大。</translation>
    </message>
    <message>
        <source>Dart and Flutter package cache. Projects use packages straight from it until they are downloaded again.</source>
        <translation>Dart 和 Flutter 软件包缓存。项目直接使用其中的软件包，清理后需要重新下载。</translation>
    </message>
    <message>
        <source>Datasets prepared by Hugging Face libraries. Preparing them again can take long, and some may no longer be offered.</source>
        <translation>Hugging Face 库处理过的数据集。重新处理可能需要很长时间，部分数据集可能已不再提供。</translation>
    </message>
    <message>
        <source>Deno re-downloads modules on demand.</source>
        <translation>Deno 会按需重新下载模块。</translation>
    </message>
    <message>
        <source>Deno re-downloads packages on demand.</source>
        <translation>Deno 会按需重新下载软件包。</translation>
    </message>
    <message>
        <source>Electron download cache. Electron is downloaded again on the next install.</source>
        <translation>Electron 下载缓存。下次安装时会重新下载 Electron。</translation>
    </message>
    <message>
        <source>Environments of pre-commit hooks, installed again on the next run. Patch files in it hold changes that were not staged while hooks ran, and do not come back.</source>
        <translation>pre-commit 钩子的环境，下次运行时会重新安装。其中的补丁文件保存了钩子运行时未暂存的更改，不会重新生成。</translation>
    </message>
    <message>
        <source>Global NuGet package folder. Packages are downloaded again on the next restore.</source>
        <translation>NuGet 全局软件包文件夹。下次还原时会重新下载软件包。</translation>
    </message>
    <message>
        <source>Go build cache, with the inputs that fuzzing found. The compiler recreates it on the next build, and fuzzing finds inputs again.</source>
        <translation>Go 构建缓存，包含模糊测试找到的输入。编译器会在下次构建时重新创建，模糊测试也会重新找到输入。</translation>
    </message>
    <message>
        <source>Go module cache. Modules are downloaded again on the next build.</source>
        <translation>Go 模块缓存。下次构建时会重新下载模块。</translation>
    </message>
    <message>
        <source>Helm cache of chart repositories. Indexes and charts are downloaded again when updated.</source>
        <translation>Helm 的 chart 仓库缓存。更新时会重新下载索引和 chart。</translation>
    </message>
    <message>
        <source>Hex download cache. Packages are downloaded again when dependencies are fetched.</source>
        <translation>Hex 下载缓存。获取依赖项时会重新下载软件包。</translation>
    </message>
    <message>
        <source>Hugging Face libraries download them again when they are loaded.</source>
        <translation>Hugging Face 库会在加载时重新下载。</translation>
    </message>
    <message>
        <source>Hugging Face transfer cache. Parts of models are downloaded again when needed.</source>
        <translation>Hugging Face 传输缓存。需要时会重新下载模型的各个部分。</translation>
    </message>
    <message>
        <source>Indexes and caches of a JetBrains IDE, which recreates them. The local history of your files is in it too, and does not come back.</source>
        <translation>JetBrains IDE 的索引和缓存，IDE 会重新创建。其中还包含文件的本地历史记录，不会重新生成。</translation>
    </message>
    <message>
        <source>Load the datasets again.</source>
        <translation>重新加载数据集。</translation>
    </message>
    <message>
        <source>Model Cache</source>
        <translation>模型缓存</translation>
    </message>
    <message>
        <source>Models and datasets downloaded from Hugging Face. They can be large, and some may no longer be offered.</source>
        <translation>从 Hugging Face 下载的模型和数据集。体积可能较大，部分内容可能已不再提供。</translation>
    </message>
    <message>
        <source>Models downloaded and kernels compiled by PyTorch. They can be large, and some may no longer be offered.</source>
        <translation>PyTorch 下载的模型和编译的内核。体积可能较大，部分内容可能已不再提供。</translation>
    </message>
    <message>
        <source>Modules downloaded by Deno before version 2. They are downloaded again on the next run.</source>
        <translation>Deno 2 之前的版本下载的模块。下次运行时会重新下载。</translation>
    </message>
    <message>
        <source>Modules downloaded by Deno. They are downloaded again on the next run.</source>
        <translation>Deno 下载的模块。下次运行时会重新下载。</translation>
    </message>
    <message>
        <source>Node.js headers for building native modules. They are downloaded again on the next build.</source>
        <translation>用于构建原生模块的 Node.js 头文件。下次构建时会重新下载。</translation>
    </message>
    <message>
        <source>NuGet download cache. Packages are downloaded again on the next restore.</source>
        <translation>NuGet 下载缓存。下次还原时会重新下载软件包。</translation>
    </message>
    <message>
        <source>Open the projects in the IDE again.</source>
        <translation>在 IDE 中重新打开项目。</translation>
    </message>
    <message>
        <source>Packages built by vcpkg. They are built again on the next install, which takes a while.</source>
        <translation>vcpkg 构建的软件包。下次安装时会重新构建，需要一些时间。</translation>
    </message>
    <message>
        <source>Part of the compiler cache. Compilations are cached again on the next build.</source>
        <translation>编译器缓存的一部分。下次构建时会重新缓存编译结果。</translation>
    </message>
    <message>
        <source>Playwright browser binaries, downloaded again on the next install. A folder named mcp-… is a browser profile instead, with its logins, and does not come back.</source>
        <translation>Playwright 浏览器程序，下次安装时会重新下载。名为 mcp-… 的文件夹则是浏览器配置文件，包含登录信息，不会重新生成。</translation>
    </message>
    <message>
        <source>Poetry cache of package indexes. They are downloaded again when dependencies are resolved.</source>
        <translation>Poetry 的软件包索引缓存。解析依赖项时会重新下载。</translation>
    </message>
    <message>
        <source>Poetry download cache. Packages are downloaded again when installed.</source>
        <translation>Poetry 下载缓存。安装时会重新下载软件包。</translation>
    </message>
    <message>
        <source>PyTorch downloads models again when they are loaded.</source>
        <translation>PyTorch 会在加载时重新下载模型。</translation>
    </message>
    <message>
        <source>RubyGems cache of package indexes. They are downloaded again when needed.</source>
        <translation>RubyGems 的软件包索引缓存。需要时会重新下载。</translation>
    </message>
    <message>
        <source>RubyGems re-downloads indexes on demand.</source>
        <translation>RubyGems 会按需重新下载索引。</translation>
    </message>
    <message>
        <source>Run bazel build again.</source>
        <translation>重新运行 bazel build。</translation>
    </message>
    <message>
        <source>Run bun install again.</source>
        <translation>重新运行 bun install。</translation>
    </message>
    <message>
        <source>Run cabal update and build the project again.</source>
        <translation>运行 cabal update 并重新构建项目。</translation>
    </message>
    <message>
        <source>Run composer install again.</source>
        <translation>重新运行 composer install。</translation>
    </message>
    <message>
        <source>Run conan install again, and conan create for your own packages.</source>
        <translation>重新运行 conan install，对自己的软件包运行 conan create。</translation>
    </message>
    <message>
        <source>Run dart pub get or flutter pub get again.</source>
        <translation>重新运行 dart pub get 或 flutter pub get。</translation>
    </message>
    <message>
        <source>Run dotnet restore again.</source>
        <translation>重新运行 dotnet restore。</translation>
    </message>
    <message>
        <source>Run electron-builder again.</source>
        <translation>重新运行 electron-builder。</translation>
    </message>
    <message>
        <source>Run go mod download again.</source>
        <translation>重新运行 go mod download。</translation>
    </message>
    <message>
        <source>Run helm repo update again.</source>
        <translation>重新运行 helm repo update。</translation>
    </message>
    <message>
        <source>Run npm install again.</source>
        <translation>重新运行 npm install。</translation>
    </message>
    <message>
        <source>Run npx cypress install again.</source>
        <translation>重新运行 npx cypress install。</translation>
    </message>
    <message>
        <source>Run npx puppeteer browsers install again.</source>
        <translation>重新运行 npx puppeteer browsers install。</translation>
    </message>
    <message>
        <source>Run pnpm install again.</source>
        <translation>重新运行 pnpm install。</translation>
    </message>
    <message>
        <source>Run poetry install again.</source>
        <translation>重新运行 poetry install。</translation>
    </message>
    <message>
        <source>Run pre-commit install-hooks again in each project.</source>
        <translation>在每个项目中重新运行 pre-commit install-hooks。</translation>
    </message>
    <message>
        <source>Run stack build again.</source>
        <translation>重新运行 stack build。</translation>
    </message>
    <message>
        <source>Run terraform init again in each project.</source>
        <translation>在每个项目中重新运行 terraform init。</translation>
    </message>
    <message>
        <source>Run the program with Deno again.</source>
        <translation>使用 Deno 重新运行程序。</translation>
    </message>
    <message>
        <source>Run vcpkg install again.</source>
        <translation>重新运行 vcpkg install。</translation>
    </message>
    <message>
        <source>Run yarn install again in each project.</source>
        <translation>在每个项目中重新运行 yarn install。</translation>
    </message>
    <message>
        <source>Run zig build again.</source>
        <translation>重新运行 zig build。</translation>
    </message>
    <message>
        <source>Stack cache of package indexes and sources. They are downloaded again on the next build.</source>
        <translation>Stack 的软件包索引和源码缓存。下次构建时会重新下载。</translation>
    </message>
    <message>
        <source>Terraform provider cache. Projects link into it and need their providers again.</source>
        <translation>Terraform provider 缓存。项目会链接到其中，清理后需要重新获取 provider。</translation>
    </message>
    <message>
        <source>Tools downloaded by electron-builder. They are downloaded again on the next build.</source>
        <translation>electron-builder 下载的工具。下次构建时会重新下载。</translation>
    </message>
    <message>
        <source>Yarn cache shared by all projects. Projects that run straight from it need their packages installed again.</source>
        <translation>所有项目共享的 Yarn 缓存。直接使用它运行的项目需要重新安装软件包。</translation>
    </message>
    <message>
        <source>Zig build and package cache. The compiler recreates it on the next build.</source>
        <translation>Zig 构建和软件包缓存。编译器会在下次构建时重新创建。</translation>
    </message>
    <message>
        <source>node-gyp re-downloads headers on demand.</source>
        <translation>node-gyp 会按需重新下载头文件。</translation>
    </message>
    <message>
        <source>npm packages downloaded by Deno. They are downloaded again on the next run.</source>
        <translation>Deno 下载的 npm 软件包。下次运行时会重新下载。</translation>
    </message>
    <message>
        <source>pnpm cache of package metadata and of what pnpm dlx ran. It is downloaded again when needed.</source>
        <translation>pnpm 的软件包元数据缓存，以及 pnpm dlx 运行过的内容。需要时会重新下载。</translation>
    </message>
    <message>
        <source>pnpm package store. Projects hard-link into it, so it frees less than it shows. Packages are downloaded again when installed.</source>
        <translation>pnpm 软件包存储。项目通过硬链接使用其中的文件，因此实际释放的空间少于显示值。安装时会重新下载软件包。</translation>
    </message>
    <message>
        <source>pnpm re-downloads packages on demand.</source>
        <translation>pnpm 会按需重新下载软件包。</translation>
    </message>
    <message>
        <source>rustup download cache. Toolchains are downloaded again when installed.</source>
        <translation>rustup 下载缓存。安装时会重新下载工具链。</translation>
    </message>
    <message>
        <source>rustup re-downloads toolchains on demand.</source>
        <translation>rustup 会按需重新下载工具链。</translation>
    </message>
    <message>
        <source>uv download and build cache. Packages are downloaded again when installed. Environments share its files, so it may free less than it shows.</source>
        <translation>uv 下载和构建缓存。安装时会重新下载软件包。环境会共享其中的文件，因此实际释放的空间可能少于显示值。</translation>
    </message>
    <message>
        <source>uv re-downloads packages on demand.</source>
        <translation>uv 会按需重新下载软件包。</translation>
    </message>
    <message>
        <source>This is the whole file system. Choose a folder below it.</source>
        <translation>这是整个文件系统。请选择其中的一个文件夹。</translation>
    </message>
    <message>
        <source>A folder that a program has marked as a cache. Review before cleaning.</source>
        <translation>被某个程序标记为缓存的文件夹。清理前请检查。</translation>
    </message>
    <message>
        <source>A whole CMake build tree that can be configured and built again.</source>
        <translation>完整的 CMake 构建目录，可以重新配置和构建。</translation>
    </message>
    <message>
        <source>A whole Meson build tree that can be set up and built again.</source>
        <translation>完整的 Meson 构建目录，可以重新设置和构建。</translation>
    </message>
    <message>
        <source>CMake built it from the sources in %1.</source>
        <translation>由 CMake 从 %1 中的源代码构建。</translation>
    </message>
    <message>
        <source>Cargo build output that can be built again.</source>
        <translation>Cargo 构建输出，可以重新构建。</translation>
    </message>
    <message>
        <source>Cargo wrote its build output here.</source>
        <translation>Cargo 将其构建输出写入此处。</translation>
    </message>
    <message>
        <source>It has no pyvenv.cfg, so it may not be a Python environment.</source>
        <translation>没有 pyvenv.cfg，因此可能不是 Python 环境。</translation>
    </message>
    <message>
        <source>It holds a %1 repository of its own: %2</source>
        <translation>包含自己的 %1 仓库：%2</translation>
    </message>
    <message>
        <source>It holds a file that may be of value: %1</source>
        <translation>包含可能有价值的文件：%1</translation>
    </message>
    <message>
        <source>It holds a file that people write: %1</source>
        <translation>包含由人编写的文件：%1</translation>
    </message>
    <message>
        <source>It holds a folder that may be of value: %1</source>
        <translation>包含可能有价值的文件夹：%1</translation>
    </message>
    <message>
        <source>It is a project of its own: %1</source>
        <translation>本身就是一个项目：%1</translation>
    </message>
    <message>
        <source>It lies in a %1 working copy, and Broomtide can only ask Git: %2</source>
        <translation>位于 %1 工作副本中，而 Broomtide 只能询问 Git：%2</translation>
    </message>
    <message>
        <source>It lies in a hidden folder of a home, where programs keep what they need: %1</source>
        <translation>位于主目录的隐藏文件夹中，程序在那里保存所需内容：%1</translation>
    </message>
    <message>
        <source>It lies in a place where programs are installed: %1</source>
        <translation>位于安装程序的位置：%1</translation>
    </message>
    <message>
        <source>Meson built it from the sources in %1.</source>
        <translation>由 Meson 从 %1 中的源代码构建。</translation>
    </message>
    <message>
        <source>Something of value may have come into the item after the scan. Rescan before cleaning it.</source>
        <translation>扫描后可能有有价值的内容进入该项目。清理前请重新扫描。</translation>
    </message>
    <message>
        <source>The program that wrote it calls it a cache.</source>
        <translation>写入它的程序称其为缓存。</translation>
    </message>
    <message>
        <source>The program that wrote it calls it a cache: %1</source>
        <translation>写入它的程序称其为缓存：%1</translation>
    </message>
    <message>
        <source>The project around it is a home folder: %1</source>
        <translation>其所在项目是主目录：%1</translation>
    </message>
    <message>
        <source>Not all of it could be read: %1</source>
        <translation>其中部分内容无法读取：%1</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::BusyIndicator</name>
    <message>
        <source>Scanning</source>
        <translation>正在扫描</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::CandidateDetails</name>
    <message>
        <source>Project: %1</source>
        <translation>项目：%1</translation>
    </message>
    <message>
        <source>How to regenerate</source>
        <translation>如何重新生成</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Copy the command</source>
        <translation>复制该命令</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::CandidateMenu</name>
    <message>
        <source>Deselect</source>
        <translation>取消选择</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>选择</translation>
    </message>
    <message>
        <source>Open Containing Folder</source>
        <translation>打开所在文件夹</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>复制路径</translation>
    </message>
    <message>
        <source>Copy Command</source>
        <translation>复制命令</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ConfirmationView</name>
    <message>
        <source>Items are moved to macOS Trash, not permanently deleted. Broomtide will validate every item again before moving it.</source>
        <translation>条目只会移到回收站，不会被永久删除。移动之前，Broomtide 会再次核查每个条目。</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>首页</translation>
    </message>
    <message numerus="yes">
        <source>%n item(s) totaling %1</source>
        <translation>
            <numerusform>%n 个条目，共 %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n of them with unusual characters in the path</source>
        <translation>
            <numerusform>其中 %n 个的路径含有异常字符</numerusform>
        </translation>
    </message>
    <message>
        <source>Moving…</source>
        <translation>正在移动…</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>移到回收站</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ContentView</name>
    <message>
        <source>Broomtide</source>
        <translation>Broomtide</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::HistoryView</name>
    <message numerus="yes">
        <source>%n item(s)</source>
        <translation>
            <numerusform>%n 个条目</numerusform>
        </translation>
    </message>
    <message>
        <source>Cleanup History</source>
        <translation>清理历史</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::MainWindow</name>
    <message>
        <source>Broomtide</source>
        <translation>Broomtide</translation>
    </message>
    <message>
        <source>&amp;Broomtide</source>
        <translation>&amp;Broomtide</translation>
    </message>
    <message>
        <source>&amp;About Broomtide</source>
        <translation>关于 Broomtide(&amp;A)</translation>
    </message>
    <message>
        <source>Check for &amp;Updates…</source>
        <translation>检查更新(&amp;U)…</translation>
    </message>
    <message>
        <source>&amp;Settings…</source>
        <translation>设置(&amp;S)…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>Broomtide &amp;Website</source>
        <translation>Broomtide 网站(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Privacy Policy</source>
        <translation>隐私政策(&amp;P)</translation>
    </message>
    <message>
        <source>About Broomtide</source>
        <translation>关于 Broomtide</translation>
    </message>
    <message>
        <source>Broomtide %1</source>
        <translation>Broomtide %1</translation>
    </message>
    <message>
        <source>Finds disposable developer files and moves them to the Trash.
Free software under the MIT licence.</source>
        <translation>查找可清理的开发文件并将其移到回收站。
以 MIT 许可证发布的自由软件。</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ProjectList</name>
    <message>
        <source>unknown</source>
        <translation>未知</translation>
    </message>
    <message>
        <source>newest disposable artifact %1</source>
        <translation>最新的可清理产物：%1</translation>
    </message>
    <message numerus="yes">
        <source>%n items</source>
        <translation>
            <numerusform>%n 个条目</numerusform>
        </translation>
    </message>
    <message>
        <source>Reclaimable by detected project</source>
        <translation>各项目可释放的空间</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ResultsFooter</name>
    <message>
        <source>Move Selected to Trash</source>
        <translation>将所选移到回收站</translation>
    </message>
    <message>
        <source>Rescan</source>
        <translation>重新扫描</translation>
    </message>
    <message numerus="yes">
        <source>%n of them hidden by the filter</source>
        <translation>
            <numerusform>其中 %n 个被筛选隐藏</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n selected</source>
        <translation>
            <numerusform>已选择 %n 个</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ResultsHeader</name>
    <message>
        <source>Found</source>
        <translation>已找到</translation>
    </message>
    <message>
        <source>Selected</source>
        <translation>已选择</translation>
    </message>
    <message>
        <source>Scanned</source>
        <translation>已扫描</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>项目</translation>
    </message>
    <message>
        <source>Matches</source>
        <translation>匹配项</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>首页</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>Clear the filter</source>
        <translation>清除筛选</translation>
    </message>
    <message>
        <source>Largest</source>
        <translation>最大</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Oldest</source>
        <translation>最旧</translation>
    </message>
    <message>
        <source>Sort</source>
        <translation>排序</translation>
    </message>
    <message>
        <source>Review cleanup items</source>
        <translation>检查待清理的条目</translation>
    </message>
    <message>
        <source>View</source>
        <translation>视图</translation>
    </message>
    <message>
        <source>Cleanup Items</source>
        <translation>清理条目</translation>
    </message>
    <message>
        <source>By Project</source>
        <translation>按项目</translation>
    </message>
    <message>
        <source>Select Safe</source>
        <translation>选择安全项</translation>
    </message>
    <message>
        <source>Unselect All</source>
        <translation>取消全选</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ResultsList</name>
    <message>
        <source>Cleanup Items</source>
        <translation>清理条目</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ResultsModel</name>
    <message>
        <source>Select %1</source>
        <translation>选择 %1</translation>
    </message>
    <message numerus="yes">
        <source>And %n more…</source>
        <translation>
            <numerusform>还有 %n 个…</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ResultsView</name>
    <message>
        <source>No matching items</source>
        <translation>没有匹配的条目</translation>
    </message>
    <message>
        <source>Nothing that was found matches the filter.</source>
        <translation>找到的内容均不符合筛选条件。</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ScanModeCard</name>
    <message>
        <source>Scan %1</source>
        <translation>扫描%1</translation>
    </message>
    <message>
        <source>Choose Folder…</source>
        <translation>选择文件夹…</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::ScanningView</name>
    <message>
        <source>folder</source>
        <translation>文件夹</translation>
    </message>
    <message>
        <source>Items scanned</source>
        <translation>已扫描条目</translation>
    </message>
    <message>
        <source>Reclaimable</source>
        <translation>可释放</translation>
    </message>
    <message>
        <source>Matches</source>
        <translation>匹配项</translation>
    </message>
    <message>
        <source>Scanning %1</source>
        <translation>正在扫描 %1</translation>
    </message>
    <message>
        <source>Back to Home</source>
        <translation>返回首页</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::SettingsPanel</name>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Broomtide</source>
        <translation>Broomtide</translation>
    </message>
    <message>
        <source>Scans stay on this Mac. Broomtide never uploads file names, paths, or scan results.</source>
        <translation>扫描仅在本机进行。Broomtide 绝不会上传文件名、路径或扫描结果。</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>版本 %1</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::SummaryView</name>
    <message>
        <source>Moved to Trash</source>
        <translation>已移到回收站</translation>
    </message>
    <message>
        <source>Items moved</source>
        <translation>已移动条目</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>失败</translation>
    </message>
    <message>
        <source>Items that were left alone</source>
        <translation>未改动的条目</translation>
    </message>
    <message>
        <source>View History</source>
        <translation>查看历史</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
</context>
<context>
    <name>broomtide::ui::WelcomeView</name>
    <message>
        <source>View Cleanup History</source>
        <translation>查看清理历史</translation>
    </message>
    <message>
        <source>Broomtide</source>
        <translation>Broomtide</translation>
    </message>
    <message>
        <source>Free up space without breaking your projects.</source>
        <translation>释放空间，不影响您的项目。</translation>
    </message>
    <message>
        <source>Project Folder</source>
        <translation>项目文件夹</translation>
    </message>
    <message>
        <source>Find build outputs, caches, and dependencies inside your repositories.</source>
        <translation>查找代码仓库中的构建输出、缓存和依赖项。</translation>
    </message>
    <message>
        <source>Developer Caches</source>
        <translation>开发缓存</translation>
    </message>
    <message>
        <source>Check Xcode DerivedData plus global npm, pip, Homebrew, Gradle, and Cargo caches.</source>
        <translation>检查 Xcode DerivedData 以及 npm、pip、Homebrew、Gradle 和 Cargo 的全局缓存。</translation>
    </message>
    <message>
        <source>Downloads</source>
        <translation>下载</translation>
    </message>
    <message>
        <source>Surface old installers, archives, and screenshots that piled up.</source>
        <translation>找出日积月累的旧安装包、归档和截图。</translation>
    </message>
    <message>
        <source>Local only</source>
        <translation>仅限本地</translation>
    </message>
    <message>
        <source>No cloud upload</source>
        <translation>不上传云端</translation>
    </message>
    <message>
        <source>Trash only</source>
        <translation>仅移到回收站</translation>
    </message>
    <message>
        <source>You review first</source>
        <translation>先由您检查</translation>
    </message>
</context>
</TS>
